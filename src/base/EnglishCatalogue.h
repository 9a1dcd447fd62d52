#pragma once

#include <string_view>

namespace vexmoor {

/// What English readers are shown in place of `source`: the words of this system, from
/// translations/en.po, which is compiled into the program. `source` itself where it has no entry.
std::string_view englishText(const char* source);

/// The same for a text with two forms.
std::string_view englishText(const char* one, const char* many, bool isOne);

} // namespace vexmoor
