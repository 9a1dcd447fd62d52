#pragma once

#include <QAccessibleWidget>

namespace vexmoor {

/// The tile as a screen reader meets it: a button that can be pressed, and that has a menu.
class TileAccessible : public QAccessibleWidget {
  public:
    /// Has every TileWindow met that way.
    static void install();

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    explicit TileAccessible(QWidget* tile) : QAccessibleWidget(tile, QAccessible::Button) {}
    static QAccessibleInterface* make(const QString& className, QObject* object);
};

} // namespace vexmoor
