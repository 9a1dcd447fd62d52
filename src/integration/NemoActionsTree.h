#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// Nemo's "actions-tree.json": the order of its actions, with names, icons and keys. Nemo appends
/// actions that are missing there.
class NemoActionsTree : public AcceleratorText {
  public:
    /// `action` is the file name of the action.
    explicit NemoActionsTree(std::string action) : m_action(std::move(action)) {}

    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;

    /// Appends our entry to the top level. If our action is already in the tree, sets its key and
    /// serializes the document in its order of keys.
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
    [[nodiscard]] std::string blank() const override;

  private:
    [[nodiscard]] std::string entry() const;

    std::string m_action;
};

} // namespace vexmoor
