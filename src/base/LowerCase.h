#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

/// Converts to lower case letter by letter, in all of Unicode, independent of the user's locale. If
/// the text is not UTF-8, only ASCII letters change. Thread-safe.
std::string lowercased(std::string_view text);

} // namespace vexmoor
