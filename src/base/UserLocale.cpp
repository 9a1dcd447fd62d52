#include "UserLocale.h"

#include "Text.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <langinfo.h>
#include <libintl.h>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace vexmoor {
namespace {

using Path = std::filesystem::path;

constexpr const char* kNoLocale = "C.UTF-8"; ///< exists on every system

std::optional<NumberStyle> numbersOfLocale;
std::optional<DateStyle> datesOfLocale;

/// Returns the folder of the message catalogues: beside the program in its build tree, under the
/// prefix it runs from, or the install prefix.
Path localeFolder() {
    std::error_code code;
    const Path programs = std::filesystem::read_symlink("/proc/self/exe", code).parent_path();
    for (const Path& folder :
         {programs.parent_path() / "locale", programs.parent_path() / "share" / "locale"})
        if (::access((folder / "en/LC_MESSAGES/vexmoor.mo").c_str(), R_OK) == 0)
            return folder;
    return VEXMOOR_LOCALE_FOLDER;
}

/// Sets a locale category from the environment. Returns the locale's name, or nullopt if it is not
/// installed.
std::optional<std::string> take(int category) {
    const char* const name = std::setlocale(category, "");
    return name != nullptr ? std::optional<std::string>(name) : std::nullopt;
}

/// Returns the name of the locale that the environment selects for messages.
const char* wantedLanguage() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* const value = std::getenv(variable); value != nullptr && *value != '\0')
            return value;
    return "";
}

/// gettext ignores LANGUAGE only in the locale "C".
void takeLanguage() {
    if (take(LC_MESSAGES))
        return;
    std::setlocale(LC_MESSAGES, kNoLocale);
    ::setenv("LANGUAGE", wantedLanguage(), 0);
}

/// True if the locale defines its own formats in our encoding.
bool says(const std::optional<std::string>& locale) {
    return locale && *locale != "C" && *locale != "POSIX" && !locale->starts_with("C.") &&
           std::string_view(::nl_langinfo(CODESET)) == "UTF-8";
}

void takeNumbers() {
    if (says(take(LC_NUMERIC))) {
        const std::lconv* const locale = std::localeconv();
        numbersOfLocale = {locale->decimal_point, locale->thousands_sep, locale->grouping};
    }
    std::setlocale(LC_NUMERIC, "C");
}

void takeDates() {
    if (!says(take(LC_TIME)))
        return;
    const std::string_view time = ::nl_langinfo(T_FMT);
    const bool hasHalves =
        time.find("%p") != std::string_view::npos || time.find("%r") != std::string_view::npos;
    datesOfLocale = {"%x", hasHalves ? "%I:%M %p" : "%R", true};
}

/// Derives the number style from a translated sample number.
NumberStyle numbersOfTexts() {
    // Translators: as your language writes this number.
    const std::string sample = text("1,234.5");
    const auto place = [&](char before, char after) {
        const auto first = sample.find(before) + 1;
        const auto last = sample.find(after);
        return last == std::string::npos || last < first ? "" : sample.substr(first, last - first);
    };
    NumberStyle style;
    style.separator = place('1', '2');
    style.decimal = place('4', '5');
    return style;
}

} // namespace

void useUserLocale() {
    if (!take(LC_CTYPE))
        std::setlocale(LC_CTYPE, kNoLocale);
    takeLanguage();
    takeNumbers();
    takeDates();
    ::bindtextdomain(kTextDomain, localeFolder().c_str());
    for (const char* domain : {kTextDomain, "libc"})
        ::bind_textdomain_codeset(domain, "UTF-8");
}

NumberStyle numberStyle() {
    if (InEnglish::isOn())
        return {};
    return numbersOfLocale ? *numbersOfLocale : numbersOfTexts();
}

DateStyle dateStyle() {
    if (datesOfLocale)
        return *datesOfLocale;
    DateStyle style;
    // Translators: a date as your language writes it, in the letters of "man strftime".
    // xgettext:no-c-format
    style.date = text("%F");
    // Translators: a time of day, in the letters of "man strftime".
    // xgettext:no-c-format
    style.time = text("%R");
    return style;
}

} // namespace vexmoor
