#include "Text.h"

#include "ByteCount.h"
#include "EnglishCatalogue.h"
#include "UserLocale.h"

#include <libintl.h>

#include <cstdlib>
#include <vector>

namespace vexmoor {
namespace {

thread_local bool inEnglish = false;

std::string filled(std::string_view pattern, const std::vector<std::string_view>& arguments) {
    std::string result;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == '%' && i + 1 < pattern.size() && pattern[i + 1] >= '1' &&
                             pattern[i + 1] <= '9';
        const auto index = isPlace ? static_cast<std::size_t>(pattern[i + 1] - '1') : 0;
        if (isPlace && index < arguments.size()) {
            result += arguments[index];
            ++i;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

/// Returns the empty text unchanged, because gettext maps it to the catalogue's header. gettext
/// returns its argument if there is no translation.
std::string_view found(const char* source) {
    if (*source == '\0')
        return source;
    const char* const translation = inEnglish ? source : ::dgettext(kTextDomain, source);
    return translation == source ? englishText(source) : translation;
}

std::string_view found(const char* one, const char* many, std::int64_t count) {
    const auto number = static_cast<unsigned long>(std::abs(count));
    const char* const source = number == 1 ? one : many;
    const char* const translation =
        inEnglish ? source : ::dngettext(kTextDomain, one, many, number);
    return translation == one || translation == many ? englishText(one, many, number == 1)
                                                     : translation;
}

} // namespace

std::string text(const char* source) {
    return std::string(found(source));
}

std::string text(std::string_view source) {
    return text(std::string(source).c_str());
}

std::string text(const char* source, std::initializer_list<std::string_view> arguments) {
    return filled(found(source), arguments);
}

std::string plural(const char* one, const char* many, std::int64_t count,
                   std::initializer_list<std::string_view> arguments) {
    const std::string number = countText(count);
    std::vector<std::string_view> all{number};
    all.insert(all.end(), arguments);
    return filled(found(one, many, count), all);
}

InEnglish::InEnglish() : m_before(inEnglish) {
    inEnglish = true;
}

InEnglish::~InEnglish() {
    inEnglish = m_before;
}

bool InEnglish::isOn() {
    return inEnglish;
}

} // namespace vexmoor
