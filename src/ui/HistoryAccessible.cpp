#include "HistoryAccessible.h"

#include "HistoryList.h"
#include "HistoryRow.h"
#include "HistoryText.h"

#include <QPointer>

#include <algorithm>

namespace vexmoor {

/// A row; invalid after its item has left the list.
class HistoryAccessible::Row : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    Row(HistoryList& list, const Uuid& item) : m_list(&list), m_item(item) {}

    [[nodiscard]] QModelIndex index() const {
        return m_list ? m_list->history().indexOf(m_item) : QModelIndex();
    }

    [[nodiscard]] bool isValid() const override { return index().isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return m_list ? m_list->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return m_list ? QAccessible::queryAccessibleInterface(m_list) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString text(QAccessible::Text text) const override {
        if (!isValid())
            return {};
        const Sacrifice& item = m_list->history().at(index());
        if (text == QAccessible::Name)
            return index().data(Qt::AccessibleTextRole).toString();
        if (text == QAccessible::Description && item.canRestore())
            return HistoryText::restoreHelp(item);
        return {};
    }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        const QRect place = isValid() ? m_list->visualRect(index()) : QRect();
        return place.isEmpty()
                   ? place
                   : QRect(m_list->viewport()->mapToGlobal(place.topLeft()), place.size());
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!isValid())
            return state;
        state.selectable = true;
        state.multiSelectable = true;
        state.focusable = true;
        state.selected = m_list->selectionModel()->isSelected(index());
        state.focused = m_list->hasFocus() && m_list->currentIndex() == index();
        const QRect place = m_list->visualRect(index());
        state.invisible = !m_list->isVisible();
        state.offscreen = !m_list->viewport()->rect().intersects(place);
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override {
        if (!isValid())
            return {};
        QStringList names{toggleAction(), setFocusAction()};
        if (m_list->history().at(index()).canRestore())
            names.prepend(pressAction()); // the action that puts the item back
        return names;
    }
    [[nodiscard]] QString localizedActionName(const QString& name) const override {
        return name == pressAction() ? HistoryRow::buttonText()
                                     : QAccessibleActionInterface::localizedActionName(name);
    }
    void doAction(const QString& name) override {
        if (!isValid())
            return;
        if (name == pressAction())
            m_list->putBack(index());
        else if (name == toggleAction())
            m_list->selectionModel()->select(index(), QItemSelectionModel::Toggle);
        else if (name == setFocusAction())
            m_list->selectionModel()->setCurrentIndex(index(), QItemSelectionModel::NoUpdate);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == pressAction() ? QStringList(QStringLiteral("Return")) : QStringList();
    }

  private:
    QPointer<HistoryList> m_list;
    Uuid m_item;
};

void HistoryAccessible::install() {
    QAccessible::installFactory(&HistoryAccessible::make); // installing it twice has no effect
}

QAccessibleInterface* HistoryAccessible::make(const QString&, QObject* object) {
    auto* const list = qobject_cast<HistoryList*>(object);
    return list != nullptr ? new HistoryAccessible(*list) : nullptr;
}

HistoryAccessible::HistoryAccessible(HistoryList& list)
    : QAccessibleWidget(&list, QAccessible::List) {}

HistoryAccessible::~HistoryAccessible() {
    for (const auto& [item, id] : m_rows)
        QAccessible::deleteAccessibleInterface(id);
}

HistoryList* HistoryAccessible::list() const {
    return qobject_cast<HistoryList*>(object());
}

int HistoryAccessible::childCount() const {
    return list() ? list()->history().rowCount() : 0;
}

QAccessibleInterface* HistoryAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    const Uuid& item = list()->history().items()[static_cast<std::size_t>(index)].id;
    const auto [found, isNew] = m_rows.try_emplace(item.toString());
    if (isNew)
        found->second = QAccessible::registerAccessibleInterface(new Row(*list(), item));
    return QAccessible::accessibleInterface(found->second);
}

int HistoryAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const row = dynamic_cast<const Row*>(child);
    return row != nullptr ? row->index().row() : -1;
}

QAccessibleInterface* HistoryAccessible::childAt(int x, int y) const {
    return list() ? child(list()->indexAt(list()->viewport()->mapFromGlobal(QPoint(x, y))).row())
                  : nullptr;
}

QAccessibleInterface* HistoryAccessible::focusChild() const {
    return list() && list()->hasFocus() ? child(list()->currentIndex().row()) : nullptr;
}

} // namespace vexmoor
