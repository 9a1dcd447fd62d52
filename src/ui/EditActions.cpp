#include "EditActions.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <optional>

namespace vexmoor {
namespace {

const char* slotOf(EditActions::Command command) {
    using Command = EditActions::Command;
    switch (command) {
    case Command::cut:
        return "cut";
    case Command::copy:
        return "copy";
    case Command::paste:
        return "paste";
    case Command::selectAll:
        break;
    }
    return "selectAll";
}

bool hasSlot(const QWidget& widget, const char* name) {
    return widget.metaObject()->indexOfSlot(QByteArray(name) + "()") >= 0;
}

/// The state of a text field.
struct Field {
    bool isSelected = false;
    bool isReadable = true; ///< false for password fields
    bool isWritable = false;
    bool isEmpty = true;
};

template <typename Edit>
Field fieldOf(const Edit& edit) {
    return {.isSelected = edit.textCursor().hasSelection(),
            .isWritable = !edit.isReadOnly(),
            .isEmpty = edit.document()->isEmpty()};
}

std::optional<Field> fieldIn(const QWidget* widget) {
    if (const auto* const line = qobject_cast<const QLineEdit*>(widget))
        return Field{line->hasSelectedText(), line->echoMode() == QLineEdit::Normal,
                     !line->isReadOnly(), line->text().isEmpty()};
    if (const auto* const text = qobject_cast<const QPlainTextEdit*>(widget))
        return fieldOf(*text);
    if (const auto* const text = qobject_cast<const QTextEdit*>(widget))
        return fieldOf(*text);
    return std::nullopt;
}

} // namespace

EditActions::EditActions() {
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &EditActions::update);
}

void EditActions::set(Command command, QAction& item) {
    m_items[command] = &item;
    connect(&item, &QAction::triggered, this, [this, command] { carryOut(command); });
    follow(QApplication::focusWidget());
}

/// An open menu has the focus temporarily; its items apply to the widget that had it before.
void EditActions::follow(QWidget* focused) {
    const bool isMenu = qobject_cast<QMenu*>(focused) != nullptr ||
                        qobject_cast<QMenuBar*>(focused) != nullptr ||
                        (focused == nullptr && QApplication::activePopupWidget() != nullptr);
    if (isMenu)
        return;
    if (m_focused)
        disconnect(m_focused, nullptr, this, nullptr);
    m_focused = focused;
    if (m_focused) {
        const QMetaObject* const type = m_focused->metaObject();
        const QMetaMethod refresh =
            staticMetaObject.method(staticMetaObject.indexOfSlot("update()"));
        for (const char* const change :
             {"selectionChanged()", "textChanged()", "textChanged(QString)"})
            if (const int index = type->indexOfSignal(change); index >= 0)
                connect(m_focused, type->method(index), this, refresh);
    }
    update();
}

void EditActions::update() {
    for (const auto& [command, item] : m_items)
        item->setEnabled(canDo(command));
}

bool EditActions::canDo(Command command) const {
    const auto field = fieldIn(m_focused);
    if (!field)
        return command == Command::selectAll && m_focused && hasSlot(*m_focused, "selectAll");
    switch (command) {
    case Command::cut:
        return field->isSelected && field->isReadable && field->isWritable;
    case Command::copy:
        return field->isSelected && field->isReadable;
    case Command::paste: {
        const QMimeData* const data = QApplication::clipboard()->mimeData();
        return field->isWritable && data != nullptr && data->hasText();
    }
    case Command::selectAll:
        break;
    }
    return !field->isEmpty;
}

void EditActions::carryOut(Command command) {
    if (m_focused)
        QMetaObject::invokeMethod(m_focused, slotOf(command));
}

} // namespace vexmoor
