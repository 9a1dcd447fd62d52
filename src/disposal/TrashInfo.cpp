#include "TrashInfo.h"

#include <cstdio>
#include <ctime>

namespace vexmoor {

namespace {

std::string localTime(Date date) {
    const auto seconds = static_cast<std::time_t>(date.unixSeconds());
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return text;
}

std::optional<Date> dateFromLocalTime(const std::string& text) {
    std::tm local{};
    if (strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &local) == nullptr)
        return std::nullopt;
    local.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&local);
    return seconds == -1 ? std::nullopt
                         : std::optional(Date::fromUnix(static_cast<double>(seconds)));
}

} // namespace

std::string TrashInfo::toText() const {
    std::string text = "[Trash Info]\nPath=" + percentEncoded(path.native()) + "\n";
    if (deletionDate)
        text += "DeletionDate=" + localTime(*deletionDate) + "\n";
    return text;
}

std::optional<TrashInfo> TrashInfo::fromText(std::string_view text) {
    if (!text.starts_with("[Trash Info]"))
        return std::nullopt;
    TrashInfo info;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto equals = line.find('=');
        if (equals == std::string_view::npos)
            continue;
        const auto key = line.substr(0, equals);
        const auto value = line.substr(equals + 1);
        if (key == "Path" && info.path.empty()) // the first one is used
            info.path = percentDecoded(value).value_or("");
        else if (key == "DeletionDate" && !info.deletionDate)
            info.deletionDate = dateFromLocalTime(std::string(value));
    }
    return info.path.empty() ? std::nullopt : std::optional(info);
}

bool TrashInfo::isOfMoment(Date moment) const {
    return deletionDate && localTime(*deletionDate) == localTime(moment);
}

std::string infoName(std::string_view storedName) {
    return std::string(storedName) + ".trashinfo";
}

} // namespace vexmoor
