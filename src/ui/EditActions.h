#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>

#include <map>
#include <string_view>

namespace vexmoor {

/// Cutting, copying, pasting and selecting all in what has the focus: fields of text, and any
/// widget that has a slot selectAll(). Items that it could not take are disabled, so that their
/// keys stay with it. Main thread.
class EditActions : public QObject {
    Q_OBJECT

  public:
    enum class Command { cut, copy, paste, selectAll };

    EditActions();

    /// The item carries out that command from now on. It must outlive this.
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
