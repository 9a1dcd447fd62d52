#pragma once

#include "base/Marked.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// Texts for people, in the language of the user's locale. Every text is written once, whole, as an
// argument of one of these functions, where xgettext finds it. Where the user's language has none,
// the English catalogue is asked, which is a part of the program. Any thread.

namespace vexmoor {

/// The translation of `source`; `source` itself if there is none.
std::string text(const char* source);
std::string text(std::string_view source);

/// The same, with "%1" to "%9" replaced by the arguments. What an argument holds stays as it is.
std::string text(const char* source, std::initializer_list<std::string_view> arguments);

/// The form for `count` by the language's plural rules. "%1" is the count with its thousands
/// separated, "%2" to "%9" the arguments.
std::string plural(const char* one, const char* many, std::int64_t count,
                   std::initializer_list<std::string_view> arguments = {});

/// While it lives, the texts, numbers and errors of this thread are English: for JSON.
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
