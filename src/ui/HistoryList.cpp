#include "HistoryList.h"

#include "Column.h"
#include "HistoryAccessible.h"
#include "HistoryDelegate.h"
#include "HistoryDrag.h"
#include "HistoryText.h"
#include "OverlayScrollBar.h"
#include "Picked.h"
#include "TextStyle.h"
#include "Transition.h"

#include <QDrag>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

namespace vexmoor {
namespace {

constexpr int kLiftMilliseconds = 160;

} // namespace

HistoryList::HistoryList(HistoryModel& model, QWidget* parent)
    : QListView(parent), m_model(model), m_delegate(new HistoryDelegate(this)),
      m_skin(Skin::iron()) {
    HistoryAccessible::install();
    setModel(&model);
    setItemDelegate(m_delegate);
    setAccessibleName(tr("History"));
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new OverlayScrollBar(*this);
    setUniformItemSizes(true);
    setDragEnabled(true);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    viewport()->setAttribute(Qt::WA_Hover);
    connect(&model, &HistoryModel::restored, this, &HistoryList::lift);
}

void HistoryList::setSkin(const Skin& skin) {
    m_skin = skin;
    m_delegate->setSkin(skin);
    viewport()->update();
}

std::set<Uuid> HistoryList::picked() const {
    std::set<Uuid> ids;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        ids.insert(m_model.at(index).id);
    return ids;
}

std::vector<Sacrifice> HistoryList::pickedOrCurrent() const {
    auto ids = picked();
    if (ids.empty() && currentIndex().isValid())
        ids.insert(m_model.at(currentIndex()).id);
    return pickedInBin(m_model.items(), ids);
}

void HistoryList::putBack(const QModelIndex& index) {
    if (index.isValid() && m_model.at(index).canRestore())
        emit restoreRequested({m_model.at(index)});
}

void HistoryList::keyPressEvent(QKeyEvent* event) {
    const bool isPutBack = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isPutBack || event->key() == Qt::Key_Delete) {
        if (const auto items = pickedOrCurrent(); !items.empty())
            emit(this->*(isPutBack ? &HistoryList::restoreRequested
                                   : &HistoryList::deleteRequested))(items);
        return;
    }
    if (event->key() == Qt::Key_Escape && !selectionModel()->selectedIndexes().isEmpty()) {
        clearSelection();
        return;
    }
    QListView::keyPressEvent(event);
}

void HistoryList::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && m_model.rowCount() > 0)
        selectionModel()->setCurrentIndex(m_model.index(0), QItemSelectionModel::NoUpdate);
}

QModelIndex HistoryList::buttonAt(QPoint place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || !m_model.at(index).canRestore())
        return {};
    const QRect button = HistoryRow::of(visualRect(index), font(), layoutDirection(), true).button;
    return button.contains(place) ? index : QModelIndex();
}

void HistoryList::showPointer(const QModelIndex& button, bool isPressed) {
    const auto before = m_delegate->pointer();
    if (before.button == button && before.isPressed == isPressed)
        return;
    m_delegate->setPointer({button, isPressed});
    for (const QModelIndex& index : {QModelIndex(before.button), button})
        if (index.isValid())
            update(index);
}

void HistoryList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex button = buttonAt(event->pos());
    showPointer(button, button.isValid() && event->button() == Qt::LeftButton);
    if (!m_delegate->pointer().isPressed)
        QListView::mousePressEvent(event);
}

void HistoryList::mouseMoveEvent(QMouseEvent* event) {
    if (m_delegate->pointer().isPressed)
        return;
    showPointer(event->buttons() == Qt::NoButton ? buttonAt(event->pos()) : QModelIndex(), false);
    QListView::mouseMoveEvent(event);
}

void HistoryList::mouseReleaseEvent(QMouseEvent* event) {
    const auto pressed = m_delegate->pointer();
    if (!pressed.isPressed || event->button() != Qt::LeftButton) {
        QListView::mouseReleaseEvent(event);
        return;
    }
    const QModelIndex button = buttonAt(event->pos());
    showPointer(button, false);
    if (button.isValid() && pressed.button == button)
        putBack(button);
}

/// A double click on a button counts as a second press.
void HistoryList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (buttonAt(event->pos()).isValid())
        mousePressEvent(event);
    else
        QListView::mouseDoubleClickEvent(event);
}

bool HistoryList::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showToolTip(*static_cast<QHelpEvent*>(event));
        return true;
    }
    if (event->type() == QEvent::Leave)
        showPointer({}, false);
    return QListView::viewportEvent(event);
}

void HistoryList::showToolTip(QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return;
    }
    const Sacrifice& item = m_model.at(index);
    const bool isOnButton = buttonAt(event.pos()).isValid();
    const QString text = isOnButton ? HistoryText::restoreHelp(item) : HistoryText::name(item);
    QToolTip::showText(event.globalPos(), HistoryText::toolTip(text), viewport(),
                       visualRect(index));
}

void HistoryList::resizeEvent(QResizeEvent* event) {
    const int side = columnInset(width()) - kColumnMargin;
    setViewportMargins(side, 0, side, 0);
    QListView::resizeEvent(event);
}

void HistoryList::startDrag(Qt::DropActions) {
    const auto items = pickedInBin(m_model.items(), picked());
    auto files = filesInBin(items);
    if (!files)
        return;
    auto* const drag = new QDrag(this);
    drag->setMimeData(files.release());
    drag->setPixmap(dragPicture(items, font(), palette(), Accent::of(m_skin, groundOf(palette())),
                                devicePixelRatioF()));
    drag->setHotSpot({-12, -8});
    drag->exec(Qt::CopyAction, Qt::CopyAction);
}

void HistoryList::selectionChanged(const QItemSelection& selected, const QItemSelection& others) {
    QListView::selectionChanged(selected, others);
    emit pickedChanged();
}

void HistoryList::lift(const Uuid& item) {
    if (!isVisible())
        return;
    auto* const motion = new Transition(*this, kLiftMilliseconds);
    connect(motion, &Transition::moved, this, [this, item](double progress) {
        m_delegate->setLifting(item, progress);
        if (const QModelIndex index = m_model.indexOf(item); index.isValid())
            update(index);
    });
    connect(motion, &Transition::finished, motion, &QObject::deleteLater);
    motion->moveTo(1);
}

} // namespace vexmoor
