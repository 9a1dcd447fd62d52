#pragma once

#include "HistoryRow.h"

#include "base/Uuid.h"
#include "skins/Skin.h"

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

#include <map>

namespace vexmoor {

/// Paints the rows of a HistoryModel. The list sets the state of the Put Back buttons and the rows
/// being lifted.
class HistoryDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit HistoryDelegate(QObject* parent);

    struct Pointer {
        QPersistentModelIndex button; ///< the row whose button is hovered
        bool isPressed = false;
    };

    void setSkin(const Skin& skin) { m_skin = skin; }
    void setPointer(const Pointer& pointer) { m_pointer = pointer; }
    [[nodiscard]] const Pointer& pointer() const { return m_pointer; }

    /// Sets a row's animation progress, from 0 to 1 (the normal state).
    void setLifting(const Uuid& item, double progress);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

  private:
    void paintGround(QPainter& painter, const QStyleOptionViewItem& option) const;
    void paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QRect& button,
                     const QModelIndex& index) const;

    Skin m_skin;
    Pointer m_pointer;
    std::map<Uuid, double> m_lifting;
};

} // namespace vexmoor
