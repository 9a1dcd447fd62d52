#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

// Ports to the desktop's accessibility service, used to find the tile. Main thread.

namespace vexmoor {

/// A node of a program's accessibility tree. Attributes that cannot be read are nullopt.
class AccessibilityElement {
  public:
    using Pointer = std::shared_ptr<const AccessibilityElement>;

    virtual ~AccessibilityElement() = default;
    [[nodiscard]] virtual std::vector<Pointer> children() const = 0;
    [[nodiscard]] virtual std::optional<QString> role() const = 0;
    [[nodiscard]] virtual std::optional<QString> title() const = 0;
    /// Returns the top-left corner in points, relative to the primary screen's top-left, y down.
    [[nodiscard]] virtual std::optional<QPointF> position() const = 0;
    [[nodiscard]] virtual std::optional<QSizeF> size() const = 0;
};

class Accessibility {
  public:
    virtual ~Accessibility() = default;
    /// True if this process may read other programs' trees. Must be cheap: called for each
    /// animation frame.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    /// Returns the root of the running dock, or null if none runs.
    [[nodiscard]] virtual AccessibilityElement::Pointer dock() const = 0;
};

} // namespace vexmoor
