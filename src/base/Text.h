#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// Texts for people, in the language of the user's locale. Every text is written once, whole, as an
// argument of one of these functions, where xgettext finds it. JSON never goes through them.

namespace vexmoor {

/// The translation of `source`; `source` itself if there is none. Any thread.
std::string text(const char* source);

/// The same, with "%1" to "%9" replaced by the arguments. What an argument holds stays as it is.
std::string text(const char* source, std::initializer_list<std::string_view> arguments);

/// The form for `count` by the language's plural rules. "%1" is the count with its thousands
/// separated, "%2" to "%9" the arguments.
std::string plural(const char* one, const char* many, std::int64_t count,
                   std::initializer_list<std::string_view> arguments = {});

} // namespace vexmoor
