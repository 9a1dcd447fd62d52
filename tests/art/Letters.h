#pragma once

#include "art/PixelCanvas.h"
#include "skins/Skin.h"

#include <string>

namespace vexmoor {

/// Returns a canvas as letter rows: the skin's letters, * for its spark, ? for any other colour, %
/// for any other translucent one. Each row ends in a newline.
std::string lettersOf(const PixelCanvas& canvas, const Skin& skin);

/// Returns the rows in golden/<name>.txt. If the environment has VEXMOOR_UPDATE_GOLDEN, first
/// writes `actual` to that file.
std::string goldenRows(const std::string& name, const std::string& actual);

} // namespace vexmoor
