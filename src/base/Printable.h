#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

/// Text that is safe to print: characters that could command a terminal or change the order in
/// which text reads are escaped byte by byte. These are the control characters, those of U+0080 to
/// U+009F too, the bidirectional controls, and the line and paragraph separators.
std::string printable(std::string_view text);

} // namespace vexmoor
