#include "MenuSelection.h"

#include "base/Path.h"
#include "cli/SessionBus.h"
#include "integration/FileManagers.h"
#include "platform/Processes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace vexmoor {

namespace {

constexpr std::chrono::seconds kTimeout{2};
constexpr const char* kWindowInterface = "org.kde.dolphin.MainWindow";
constexpr std::string_view kWindowNode = "<node name=\"Dolphin_";

bool areSame(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// True if the folder is the working directory, under any name, but not through a link inside that
/// directory.
bool isWorkingDirectory(const Path& folder, const struct stat& found) {
    struct stat here {};
    struct stat parent {};
    return ::stat(".", &here) == 0 && areSame(found, here) &&
           (::stat(folder.parent_path().c_str(), &parent) != 0 || !areSame(parent, here));
}

bool isProgramOf(const FileManager& manager, const std::string& program) {
    return std::ranges::find(manager.programs, program) != manager.programs.end();
}

/// Returns the URI in Dolphin's spelling, with as few escapes as possible.
std::string dolphinUri(const std::string& path) {
    std::string uri = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F &&
            std::string_view("%#?\"<>\\^`{|}").find(c) == std::string::npos) {
            uri += c;
        } else {
            char encoded[4];
            std::snprintf(encoded, sizeof encoded, "%%%02X", byte);
            uri += encoded;
        }
    }
    return uri;
}

/// Returns the object paths of Dolphin's windows; none if it does not answer.
std::vector<std::string> windowsOf(SessionBus& bus, const std::string& service) {
    auto call =
        bus.call(service.c_str(), "/dolphin", "org.freedesktop.DBus.Introspectable", "Introspect");
    call.startNothing();
    auto answer = bus.send(std::move(call), kTimeout);
    auto* const reply = std::get_if<BusReply>(&answer);
    const auto text = reply != nullptr ? reply->text().value_or("") : "";
    std::vector<std::string> windows;
    for (auto at = text.find(kWindowNode); at != std::string::npos;
         at = text.find(kWindowNode, at + 1)) {
        const auto number = at + kWindowNode.size();
        windows.push_back(
            "/dolphin/Dolphin_" +
            text.substr(number, text.find_first_not_of("0123456789", number) - number));
    }
    return windows;
}

std::optional<bool> isOpenIn(SessionBus& bus, const std::string& service, const std::string& window,
                             const std::string& url) {
    auto call = bus.call(service.c_str(), window.c_str(), kWindowInterface, "isUrlOpen");
    call.startNothing();
    call.add(url);
    auto answer = bus.send(std::move(call), kTimeout);
    auto* const reply = std::get_if<BusReply>(&answer);
    return reply != nullptr ? reply->boolean() : std::nullopt;
}

MenuSelection askDolphin(const std::vector<RunningProcess>& processes, const std::string& path) {
    auto bus = SessionBus::connect();
    if (!bus || !isValidUtf8(path))
        return MenuSelection::unknown;
    for (const auto& process : processes) {
        const auto service = "org.kde.dolphin-" + std::to_string(process.id);
        const auto windows = windowsOf(*bus, service);
        if (windows.empty())
            return MenuSelection::unknown;
        for (const auto& window : windows)
            for (const auto& url : {path, dolphinUri(path)}) {
                const auto isOpen = isOpenIn(*bus, service, window, url);
                if (!isOpen)
                    return MenuSelection::unknown;
                if (*isOpen)
                    return MenuSelection::nothing;
            }
    }
    return MenuSelection::items;
}

/// Returns the Dolphin processes that may have started this one: the parent, or any Dolphin if the
/// service manager of the session starts programs for it.
std::vector<RunningProcess> callingDolphins(const std::optional<RunningProcess>& parent) {
    const auto& dolphin = *fileManagerWithId("dolphin");
    if (!parent)
        return {};
    if (isProgramOf(dolphin, parent->program))
        return {*parent};
    return parent->program == "systemd" ? processesOf(dolphin.programs)
                                        : std::vector<RunningProcess>();
}

bool isOnViewInPcmanfmQt(const std::optional<RunningProcess>& parent, const Path& folder) {
    const auto& pcmanfmQt = *fileManagerWithId("pcmanfm-qt");
    const bool isCalledByOther = parent && !isProgramOf(pcmanfmQt, parent->program) &&
                                 std::ranges::any_of(kFileManagers, [&](const auto& manager) {
                                     return isProgramOf(manager, parent->program);
                                 });
    return !isCalledByOther &&
           std::ranges::any_of(processesOf(pcmanfmQt.programs), [&](const auto& process) {
               return watchesFolder(process.id, folder);
           });
}

} // namespace

MenuSelection menuSelection(const std::vector<std::string>& items) {
    if (items.size() != 1)
        return items.empty() ? MenuSelection::nothing : MenuSelection::items;
    const Path folder = standardized(items.front());
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0 || !S_ISDIR(found.st_mode))
        return MenuSelection::items;
    if (isWorkingDirectory(folder, found))
        return MenuSelection::nothing;
    const auto parent = runningProcess(::getppid());
    if (const auto dolphins = callingDolphins(parent); !dolphins.empty())
        return askDolphin(dolphins, folder.native());
    return isOnViewInPcmanfmQt(parent, folder) ? MenuSelection::nothing : MenuSelection::items;
}

} // namespace vexmoor
