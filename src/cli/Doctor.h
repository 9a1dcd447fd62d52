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

/// One topic of `vexmoor doctor`: an object or array for programs, and lines with a label and a
/// finding for people. Contains nothing private: no names of files, volumes or the user.
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

/// What the topics examine. Changes nothing and starts no program except the desktop program, which
/// reports its state and exits.
struct DoctorContext {
    UserDirectories directories;
    std::optional<SessionBus> bus;
    /// The answer of the desktop program (docs/dbus.md, Describe); null if it does not answer.
    nlohmann::ordered_json desktop;
    /// The stores, opened read-only; null if they cannot be opened.
    std::unique_ptr<SqliteUserDefaults> defaults;
    std::optional<Error> defaultsError;

    static DoctorContext ofProcess();

    /// Returns a value of the desktop program's answer by its JSON pointer ("/tile/reason"); null,
    /// empty or nullopt if it is missing.
    [[nodiscard]] nlohmann::ordered_json desktopValue(const std::string& pointer) const;
    [[nodiscard]] std::string desktopText(const std::string& pointer) const;
    [[nodiscard]] std::optional<bool> desktopSwitch(const std::string& pointer) const;
    /// Returns the type of session: "wayland", "x11" or "none".
    [[nodiscard]] std::string sessionKind() const;
};

// Each function examines one topic, with timeouts of a few seconds.
DoctorTopic doctorVersions(const DoctorContext& context);
DoctorTopic doctorSession(const DoctorContext& context);
DoctorTopic doctorTile(const DoctorContext& context);
DoctorTopic doctorServices(DoctorContext& context);
DoctorTopic doctorKeys(const DoctorContext& context);
DoctorTopic doctorBins(const DoctorContext& context);
DoctorTopic doctorRecords(const DoctorContext& context);

} // namespace vexmoor
