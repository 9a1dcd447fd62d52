#pragma once

#include "base/Marked.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// User-visible texts in the language of the user's locale. Each text occurs once, whole, as an
// argument of these functions, so that xgettext finds it. A text without a translation comes from
// the English catalogue, which is part of the program. Thread-safe.

namespace vexmoor {

/// Returns the translation of `source`, or `source` itself if there is none.
std::string text(const char* source);
std::string text(std::string_view source);

/// Same, with "%1" to "%9" replaced by the arguments. Placeholders inside arguments are not
/// replaced.
std::string text(const char* source, std::initializer_list<std::string_view> arguments);

/// Returns the plural form for `count` by the language's rules. "%1" is the count with thousands
/// separators, "%2" to "%9" are the arguments.
std::string plural(const char* one, const char* many, std::int64_t count,
                   std::initializer_list<std::string_view> arguments = {});

/// Switches the calling thread's texts, numbers and error messages to English during its lifetime.
/// Used for JSON.
class InEnglish {
  public:
    InEnglish();
    ~InEnglish();
    InEnglish(const InEnglish&) = delete;
    InEnglish& operator=(const InEnglish&) = delete;

    [[nodiscard]] static bool isOn();

  private:
    bool m_before;
};

} // namespace vexmoor
