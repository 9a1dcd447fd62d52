#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// Dolphin's "dolphinui.rc": the user's own shortcuts, as properties of actions.
class DolphinShortcuts : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
    [[nodiscard]] std::string blank() const override;
};

/// Dolphin's "dolphinrc": it discards the shortcuts of a profile that has no version yet.
/// "installed" means that there is one. Dolphin drops comments when it writes the file, so a
/// version below our comment is still ours alone.
class DolphinProfile : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
};

} // namespace vexmoor
