#include "OwnDock.h"

#include <QGuiApplication>
#include <QScreen>

namespace vexmoor {
namespace {

struct Node : AccessibilityElement {
    std::optional<QString> roleText;
    std::optional<QString> titleText;
    std::optional<QRectF> frame;
    std::vector<Pointer> nodes;

    [[nodiscard]] std::vector<Pointer> children() const override { return nodes; }
    [[nodiscard]] std::optional<QString> role() const override { return roleText; }
    [[nodiscard]] std::optional<QString> title() const override { return titleText; }
    [[nodiscard]] std::optional<QPointF> position() const override {
        return frame ? std::optional(frame->topLeft()) : std::nullopt;
    }
    [[nodiscard]] std::optional<QSizeF> size() const override {
        return frame ? std::optional(frame->size()) : std::nullopt;
    }
};

} // namespace

AccessibilityElement::Pointer OwnDock::dock() const {
    const auto list = std::make_shared<Node>();
    list->roleText = QStringLiteral("AXList");
    if (const std::optional<QRectF> frame = m_tileFrame()) {
        const QPoint primary = QGuiApplication::primaryScreen()->geometry().topLeft();
        const auto tile = std::make_shared<Node>();
        tile->roleText = QStringLiteral("AXDockItem");
        tile->titleText = QStringLiteral("Vexmoor");
        tile->frame = frame->translated(-primary);
        list->nodes.push_back(tile);
    }
    const auto root = std::make_shared<Node>();
    root->nodes.push_back(list);
    return root;
}

} // namespace vexmoor
