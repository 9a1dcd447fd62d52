#pragma once

#include "dock/Accessibility.h"
#include "dock/Screens.h"

namespace vexmoor::test {

/// A node of a fake accessibility tree.
struct FakeElement : AccessibilityElement {
    std::vector<Pointer> m_children;
    std::optional<QString> m_role;
    std::optional<QString> m_title;
    std::optional<QPointF> m_position;
    std::optional<QSizeF> m_size;

    [[nodiscard]] std::vector<Pointer> children() const override { return m_children; }
    [[nodiscard]] std::optional<QString> role() const override { return m_role; }
    [[nodiscard]] std::optional<QString> title() const override { return m_title; }
    [[nodiscard]] std::optional<QPointF> position() const override { return m_position; }
    [[nodiscard]] std::optional<QSizeF> size() const override { return m_size; }
};

inline std::shared_ptr<FakeElement> element(std::optional<QString> role,
                                            std::optional<QString> title = {},
                                            std::vector<AccessibilityElement::Pointer> kids = {}) {
    auto made = std::make_shared<FakeElement>();
    made->m_role = std::move(role);
    made->m_title = std::move(title);
    made->m_children = std::move(kids);
    return made;
}

/// Returns a tile as a dock provides it; `position` is relative to the primary screen's top-left.
inline std::shared_ptr<FakeElement> tile(const QString& title, QPointF position, double side) {
    auto made = element(QStringLiteral("AXDockItem"), title);
    made->m_position = position;
    made->m_size = QSizeF(side, side);
    return made;
}

/// A fake dock that counts its queries.
struct FakeAccessibility : Accessibility {
    bool trusted = true;
    AccessibilityElement::Pointer root;
    mutable int looks = 0;

    [[nodiscard]] bool isTrusted() const override { return trusted; }
    [[nodiscard]] AccessibilityElement::Pointer dock() const override {
        ++looks;
        return root;
    }

    /// Sets a dock with one list of these items.
    void setItems(std::vector<AccessibilityElement::Pointer> items) {
        root = element({}, {}, {element(QStringLiteral("AXList"), {}, std::move(items))});
    }
};

struct FakeScreens : Screens {
    std::vector<DeskRect> rects{{0, 0, 1280, 800}};

    [[nodiscard]] std::vector<DeskRect> frames() const override { return rects; }
};

} // namespace vexmoor::test
