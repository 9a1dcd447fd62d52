#pragma once

#include "art/PixelCanvas.h"
#include "skins/Skin.h"

#include <string>

namespace vexmoor {

/// A canvas as letter rows: the skin's letters, * for its spark, ? for any other colour, % for any
/// other translucent one. Rows end in a newline.
std::string lettersOf(const PixelCanvas& canvas, const Skin& skin);

/// The rows kept in golden/<name>.txt. With VEXMOOR_UPDATE_GOLDEN set in the environment, `actual`
/// is written there first.
std::string goldenRows(const std::string& name, const std::string& actual);

} // namespace vexmoor
