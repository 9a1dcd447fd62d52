#pragma once

#include "Accessibility.h"

#include <QRectF>

#include <functional>

namespace vexmoor {

/// The accessibility tree of our own dock, which consists of the tile. Main thread.
class OwnDock : public Accessibility {
  public:
    using TileFrame = std::function<std::optional<QRectF>()>;

    /// `trusted` returns whether the session's accessibility service answers; `tileFrame` returns
    /// the tile's frame in Qt's coordinates, or nullopt while it is hidden.
    OwnDock(std::function<bool()> trusted, TileFrame tileFrame)
        : m_trusted(std::move(trusted)), m_tileFrame(std::move(tileFrame)) {}

    [[nodiscard]] bool isTrusted() const override { return m_trusted(); }
    [[nodiscard]] AccessibilityElement::Pointer dock() const override;

  private:
    std::function<bool()> m_trusted;
    TileFrame m_tileFrame;
};

} // namespace vexmoor
