#pragma once

#include "skins/Skin.h"

#include "art/PixelCanvas.h"

#include <string>
#include <vector>

namespace vexmoor::arttool {

/// The animations that can be shown: "idle", "burn", "swarm".
const std::vector<std::string>& showNames();

/// How many frames an animation has, and their rate.
int frameCount(const std::string& show);
int framesPerSecond(const std::string& show);

/// One of its frames as the desktop shows it: the pot with the flames above and around it.
PixelCanvas showFrame(const std::string& show, int frame, const Skin& skin);

} // namespace vexmoor::arttool
