#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// Dolphin's "dolphinui.rc": the user's shortcuts as properties of actions.
class DolphinShortcuts : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
    [[nodiscard]] std::string blank() const override;
};

/// Dolphin's "dolphinrc". Dolphin discards the shortcuts of a profile without a version;
/// "installed" means that there is a version. Dolphin drops comments when it writes the file, so a
/// version below our comment was written by us only.
class DolphinProfile : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
};

} // namespace vexmoor
