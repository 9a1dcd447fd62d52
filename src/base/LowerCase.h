#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

/// The text in lower case, whatever the user's locale: letter by letter, in all of Unicode. What is
/// not UTF-8 keeps its letters beyond ASCII. Any thread.
std::string lowercased(std::string_view text);

} // namespace vexmoor
