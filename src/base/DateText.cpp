#include "DateText.h"

#include "Text.h"
#include "UserLocale.h"

#include <array>
#include <ctime>

namespace vexmoor {
namespace {

std::tm localTime(Date date) {
    const auto seconds = static_cast<std::time_t>(date.unixSeconds());
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return local;
}

std::string formatted(Date date, const std::string& format) {
    const std::tm local = localTime(date);
    std::array<char, 128> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format.c_str(), &local)};
}

} // namespace

std::string dateText(Date date) {
    return formatted(date, dateStyle().date);
}

std::string dateTimeText(Date date) {
    const auto style = dateStyle();
    return formatted(date, style.date + " " + style.time);
}

std::string weekdayText(Date date) {
    if (dateStyle().hasWeekdays)
        return formatted(date, "%a");
    constexpr std::array kWeekdays = {marked("Sun"), marked("Mon"), marked("Tue"), marked("Wed"),
                                      marked("Thu"), marked("Fri"), marked("Sat")};
    return text(kWeekdays.at(static_cast<std::size_t>(localTime(date).tm_wday)));
}

} // namespace vexmoor
