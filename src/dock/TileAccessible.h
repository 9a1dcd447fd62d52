#pragma once

#include <QAccessibleWidget>

namespace vexmoor {

/// The tile's accessibility interface: a button with a press and a menu action.
class TileAccessible : public QAccessibleWidget {
  public:
    /// Installs the factory for all TileWindow instances.
    static void install();

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    explicit TileAccessible(QWidget* tile) : QAccessibleWidget(tile, QAccessible::Button) {}
    static QAccessibleInterface* make(const QString& className, QObject* object);
};

} // namespace vexmoor
