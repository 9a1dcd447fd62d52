#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>

#include <map>
#include <string_view>

namespace vexmoor {

/// The cut, copy, paste and select all commands for the focused text field, or for any widget with
/// a selectAll() slot. Commands that do not apply are disabled, so that their shortcuts reach the
/// widget. Main thread.
class EditActions : public QObject {
    Q_OBJECT

  public:
    enum class Command { cut, copy, paste, selectAll };

    EditActions();

    /// Assigns a menu item to a command. The item must outlive this object.
    void set(Command command, QAction& item);

  private slots:
    void update();

  private:
    void follow(QWidget* focused);
    void carryOut(Command command);
    [[nodiscard]] bool canDo(Command command) const;

    std::map<Command, QAction*> m_items;
    QPointer<QWidget> m_focused;
};

} // namespace vexmoor
