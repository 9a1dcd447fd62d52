#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// Nemo's "actions-tree.json": the order of its actions, with their names, icons and keys. Nemo
/// appends actions that it does not name.
class NemoActionsTree : public AcceleratorText {
  public:
    /// `action` is the name of the action's file.
    explicit NemoActionsTree(std::string action) : m_action(std::move(action)) {}

    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;

    /// Our entry becomes the last one of the top level; if our action is in the tree already, it
    /// gets the key, and the document is written again in its order of keys.
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;
    [[nodiscard]] std::string blank() const override;

  private:
    [[nodiscard]] std::string entry() const;

    std::string m_action;
};

} // namespace vexmoor
