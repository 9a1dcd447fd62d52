#pragma once

#include <string>

namespace vexmoor {

/// The name of the program's message catalogue.
inline constexpr const char* kTextDomain = "vexmoor";

/// Switches texts, system errors, numbers and dates to the user's locale (LC_ALL, LC_MESSAGES,
/// LC_NUMERIC, LC_TIME, LANG, LANGUAGE). Without this call they are English. If the locale is not
/// installed, the language in its name still applies. The C library's number functions keep the C
/// format. Call once at the start of main, before starting threads.
void useUserLocale();

/// How numbers are formatted for users.
struct NumberStyle {
    std::string decimal = ".";
    std::string separator = ","; ///< between groups of digits; may be empty
    std::string groups = "\3";   ///< group sizes from the right; the last one repeats
};

/// Returns the user's number style, or the English one if the locale defines none or for JSON.
/// Thread-safe.
NumberStyle numberStyle();

/// strftime formats.
struct DateStyle {
    std::string date = "%F";
    std::string time = "%R";
    bool hasWeekdays = false; ///< whether strftime has localized weekday names
};

/// Returns the user's date style, or that of the texts' language if the locale defines none.
/// Thread-safe.
DateStyle dateStyle();

} // namespace vexmoor
