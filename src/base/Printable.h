#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

/// Makes text safe to print by escaping, byte by byte, the characters that can control a terminal
/// or reorder text: control characters (including U+0080 to U+009F), bidirectional controls, and
/// line and paragraph separators.
std::string printable(std::string_view text);

} // namespace vexmoor
