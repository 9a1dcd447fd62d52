#include "Text.h"

#include "ByteCount.h"

#include <libintl.h>

#include <vector>

namespace vexmoor {
namespace {

constexpr const char* kDomain = "vexmoor";

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

} // namespace

std::string text(const char* source) {
    return dgettext(kDomain, source);
}

std::string text(const char* source, std::initializer_list<std::string_view> arguments) {
    return filled(dgettext(kDomain, source), arguments);
}

std::string plural(const char* one, const char* many, std::int64_t count,
                   std::initializer_list<std::string_view> arguments) {
    const std::string number = countText(count);
    std::vector<std::string_view> all{number};
    all.insert(all.end(), arguments);
    return filled(dngettext(kDomain, one, many, static_cast<unsigned long>(count)), all);
}

} // namespace vexmoor
