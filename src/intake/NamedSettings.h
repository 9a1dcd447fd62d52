#pragma once

#include "disposal/Settings.h"
#include "progression/Progression.h"

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The settings and the skin by name, with values as text. Main thread only.
class NamedSettings {
  public:
    /// Why a setting was not changed.
    struct Complaint {
        enum class Kind {
            usage,   ///< unknown name or invalid value
            refused, ///< valid, but not available yet
        };
        Kind kind;
        std::string sentence;
    };

    NamedSettings(Settings& settings, Progression& progression)
        : m_settings(settings), m_progression(progression) {}

    /// Sets the setting; returns nullopt on success. The sentence is in the user's language.
    std::optional<Complaint> assign(const std::string& name, const std::string& value);

    /// Returns the complaint that assign() would return.
    [[nodiscard]] std::optional<Complaint> complaintAbout(const std::string& name,
                                                          const std::string& value) const;

    /// Returns the values currently available for a setting, the preferred spelling of each; empty
    /// for an unknown name.
    [[nodiscard]] std::vector<std::string> choices(const std::string& name) const;

    /// Returns all names in display order.
    static std::vector<std::string> names();

  private:
    [[nodiscard]] std::optional<Complaint> complaintAboutSkin(const std::string& id) const;

    Settings& m_settings;
    Progression& m_progression;
};

} // namespace vexmoor
