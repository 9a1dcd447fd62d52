#pragma once

#include "skins/Skin.h"

#include "art/PixelCanvas.h"

#include <string>
#include <vector>

namespace vexmoor::arttool {

/// The names of the available animations: "idle", "burn", "swarm".
const std::vector<std::string>& showNames();

/// The number of frames of an animation and its rate.
int frameCount(const std::string& show);
int framesPerSecond(const std::string& show);

/// Returns a frame as the desktop shows it: the pot with the flames above and around it.
PixelCanvas showFrame(const std::string& show, int frame, const Skin& skin);

} // namespace vexmoor::arttool
