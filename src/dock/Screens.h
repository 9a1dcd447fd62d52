#pragma once

#include "DeskRect.h"

#include <vector>

namespace vexmoor {

/// The screens' positions (port). Main thread.
class Screens {
  public:
    virtual ~Screens() = default;

    /// The primary screen is the one with its origin at (0, 0).
    [[nodiscard]] virtual std::vector<DeskRect> frames() const = 0;
};

/// The screens of this session.
class SessionScreens : public Screens {
  public:
    [[nodiscard]] std::vector<DeskRect> frames() const override;
};

} // namespace vexmoor
