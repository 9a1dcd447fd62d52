#pragma once

#include "Accessibility.h"

#include <QRectF>

#include <functional>

namespace vexmoor {

/// The accessibility tree of the dock that consists of our own tile. Main thread.
class OwnDock : public Accessibility {
  public:
    using TileFrame = std::function<std::optional<QRectF>()>;

    /// `trusted` answers whether the session's accessibility service does; `tileFrame` where the
    /// tile is in Qt's coordinates, or nothing while it is not shown.
    OwnDock(std::function<bool()> trusted, TileFrame tileFrame)
        : m_trusted(std::move(trusted)), m_tileFrame(std::move(tileFrame)) {}

    [[nodiscard]] bool isTrusted() const override { return m_trusted(); }
    [[nodiscard]] AccessibilityElement::Pointer dock() const override;

  private:
    std::function<bool()> m_trusted;
    TileFrame m_tileFrame;
};

} // namespace vexmoor
