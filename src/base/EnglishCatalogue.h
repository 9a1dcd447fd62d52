#pragma once

#include <string_view>

namespace vexmoor {

/// Returns the English text to show for `source`, from translations/en.po, which is compiled into
/// the program. Returns `source` itself if it has no entry there.
std::string_view englishText(const char* source);

/// Same for a text with a singular and a plural form.
std::string_view englishText(const char* one, const char* many, bool isOne);

} // namespace vexmoor
