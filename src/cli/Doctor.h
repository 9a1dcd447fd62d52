#pragma once

#include "base/SqliteUserDefaults.h"
#include "cli/SessionBus.h"
#include "platform/UserDirectories.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// One topic of `vexmoor doctor`: for programs an object or array, for people lines of a label and
/// what was found. Nothing in it is private: no names of files, of volumes or of the user.
struct DoctorTopic {
    struct Line {
        std::string label;
        std::string finding;
    };
    std::string key;
    std::string title;
    nlohmann::ordered_json json;
    std::vector<Line> lines;
};

/// What the topics look into. Nothing is changed and no program is started by it, but for the
/// desktop program, which is asked.
struct DoctorContext {
    UserDirectories directories;
    std::optional<SessionBus> bus;
    /// What the desktop program sees (docs/dbus.md, Describe); null if it does not answer.
    nlohmann::ordered_json desktop;
    /// The stores, only read; null if they cannot be.
    std::unique_ptr<SqliteUserDefaults> defaults;
    std::optional<Error> defaultsError;

    static DoctorContext ofProcess();

    /// A value of the desktop program's answer by its JSON pointer ("/tile/reason"); null, empty or
    /// nullopt if it has none.
    [[nodiscard]] nlohmann::ordered_json desktopValue(const std::string& pointer) const;
    [[nodiscard]] std::string desktopText(const std::string& pointer) const;
    [[nodiscard]] std::optional<bool> desktopSwitch(const std::string& pointer) const;
    /// "wayland", "x11" or "none": who shows the session's windows.
    [[nodiscard]] std::string sessionKind() const;
};

// One topic each. None waits for longer than seconds, whatever does not answer.
DoctorTopic doctorVersions(const DoctorContext& context);
DoctorTopic doctorSession(const DoctorContext& context);
DoctorTopic doctorTile(const DoctorContext& context);
DoctorTopic doctorServices(DoctorContext& context);
DoctorTopic doctorKeys(const DoctorContext& context);
DoctorTopic doctorBins(const DoctorContext& context);
DoctorTopic doctorRecords(const DoctorContext& context);

} // namespace vexmoor
