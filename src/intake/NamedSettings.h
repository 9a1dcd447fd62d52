#pragma once

#include "disposal/Settings.h"
#include "progression/Progression.h"

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The settings and the skin as users write them: by name, with a text as value. Main thread only.
class NamedSettings {
  public:
    /// Why a setting stays as it is.
    struct Complaint {
        enum class Kind {
            usage,   ///< there is no such setting, or it can't be that
            refused, ///< it can't be that yet
        };
        Kind kind;
        std::string sentence;
    };

    NamedSettings(Settings& settings, Progression& progression)
        : m_settings(settings), m_progression(progression) {}

    /// Nothing where the setting is the value now. The sentence is in the user's language.
    std::optional<Complaint> assign(const std::string& name, const std::string& value);

    /// What assign() would complain about.
    [[nodiscard]] std::optional<Complaint> complaintAbout(const std::string& name,
                                                          const std::string& value) const;

    /// What a setting can be now, the usual spelling of each; empty if there is no such setting.
    [[nodiscard]] std::vector<std::string> choices(const std::string& name) const;

    /// In the order of showing.
    static std::vector<std::string> names();

  private:
    [[nodiscard]] std::optional<Complaint> complaintAboutSkin(const std::string& id) const;

    Settings& m_settings;
    Progression& m_progression;
};

} // namespace vexmoor
