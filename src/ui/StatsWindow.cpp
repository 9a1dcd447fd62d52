#include "StatsWindow.h"

#include "DropFrame.h"

#include "dock/DroppedUris.h"
#include "progression/Progression.h"

#include <QDragEnterEvent>
#include <QMimeData>

namespace vexmoor {
namespace {

const QString kUriList = QStringLiteral("text/uri-list");

} // namespace

StatsWindow::StatsWindow(StatsView::Parts parts)
    : m_view(new StatsView(std::move(parts), this)), m_frame(new DropFrame(*this)) {
    setWindowTitle(tr("Vexmoor"));
    setCentralWidget(m_view);
    setAcceptDrops(true);
    resize(sizeHint());
}

/// Ignores drags from the window itself; their items are already in the Bin.
void StatsWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->source() != nullptr || !event->mimeData()->hasFormat(kUriList))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_frame->setShown(true, m_view->skin());
}

void StatsWindow::dragLeaveEvent(QDragLeaveEvent*) {
    m_frame->setShown(false, m_view->skin());
}

void StatsWindow::dropEvent(QDropEvent* event) {
    m_frame->setShown(false, m_view->skin());
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const DroppedUris uris = DroppedUris::fromList(event->mimeData()->data(kUriList).toStdString());
    emit dropped(uris.items, uris.others);
}

} // namespace vexmoor
