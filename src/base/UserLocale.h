#pragma once

#include <string>

namespace vexmoor {

/// The name of the program's catalogue in the folders of the locales.
inline constexpr const char* kTextDomain = "vexmoor";

/// Texts, errors of the system, numbers and dates from now on are as the user's locale has them
/// (LC_ALL, LC_MESSAGES, LC_NUMERIC, LC_TIME, LANG, LANGUAGE); without this call they are English.
/// Where the locale is missing on this system, the language of its name still counts. The C
/// library's own numbers keep the form that machines read. Once, at the start of main, before other
/// threads are started.
void useUserLocale();

/// How numbers are written for people.
struct NumberStyle {
    std::string decimal = ".";
    std::string separator = ","; ///< between groups of digits; may be empty
    std::string groups = "\3";   ///< digits a group, from the right; the last one counts on
};

/// That of the user's locale; the English one where it says nothing, and for JSON. Any thread.
NumberStyle numberStyle();

/// Formats for strftime. Any thread.
struct DateStyle {
    std::string date = "%F";
    std::string time = "%R";
    bool hasWeekdays = false; ///< whether strftime knows the names of the weekdays
};

/// That of the user's locale; where it says nothing, that of the texts' language.
DateStyle dateStyle();

} // namespace vexmoor
