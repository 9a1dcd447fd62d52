#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

// What finding the tile asks of the desktop's accessibility service (ports). Main thread.

namespace vexmoor {

/// One node of a program's accessibility tree. What cannot be read is absent.
class AccessibilityElement {
  public:
    using Pointer = std::shared_ptr<const AccessibilityElement>;

    virtual ~AccessibilityElement() = default;
    [[nodiscard]] virtual std::vector<Pointer> children() const = 0;
    [[nodiscard]] virtual std::optional<QString> role() const = 0;
    [[nodiscard]] virtual std::optional<QString> title() const = 0;
    /// The top-left corner, from the top-left of the primary screen, y down, in points.
    [[nodiscard]] virtual std::optional<QPointF> position() const = 0;
    [[nodiscard]] virtual std::optional<QSizeF> size() const = 0;
};

class Accessibility {
  public:
    virtual ~Accessibility() = default;
    /// Whether this process may look at others' trees. Cheap: asked for every animation frame.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    /// The running dock's root; null where none runs.
    [[nodiscard]] virtual AccessibilityElement::Pointer dock() const = 0;
};

} // namespace vexmoor
