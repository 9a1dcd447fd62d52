#include "LowerCase.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstdlib>

namespace vexmoor {

namespace {

constexpr auto kFailed = static_cast<std::size_t>(-1);

/// Sets the calling thread's locale to C.UTF-8 during its lifetime.
class UnicodeLocale {
  public:
    UnicodeLocale() : m_before(::uselocale(unicode())) {}
    ~UnicodeLocale() { ::uselocale(m_before); }
    UnicodeLocale(const UnicodeLocale&) = delete;
    UnicodeLocale& operator=(const UnicodeLocale&) = delete;

  private:
    static locale_t unicode() {
        static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return locale;
    }

    locale_t m_before;
};

std::string lowercasedBeyondAscii(std::string text) {
    const UnicodeLocale locale;
    std::wstring wide(text.size(), L'\0');
    const std::size_t letters = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    if (letters == kFailed)
        return text;
    wide.resize(letters);
    std::ranges::transform(wide, wide.begin(),
                           [](wchar_t letter) { return wchar_t(::towlower(wint_t(letter))); });
    std::string result(wide.size() * MB_CUR_MAX, '\0');
    const std::size_t bytes = std::wcstombs(result.data(), wide.c_str(), result.size());
    if (bytes == kFailed)
        return text;
    result.resize(bytes);
    return result;
}

} // namespace

std::string lowercased(std::string_view text) {
    std::string result(text);
    bool onlyAscii = true;
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        onlyAscii = onlyAscii && static_cast<unsigned char>(c) < 0x80;
    }
    return onlyAscii ? result : lowercasedBeyondAscii(std::move(result));
}

} // namespace vexmoor
