#include "ScrollColumn.h"

#include "OverlayScrollBar.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace vexmoor {

ScrollColumn::ScrollColumn(int widest, int inset, QWidget* parent)
    : QScrollArea(parent), m_column(nullptr) {
    auto* const page = new QWidget;
    auto* const sheet = new QWidget(page);
    sheet->setMaximumWidth(widest + 2 * inset);
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(kMargin - inset, 0, kMargin - inset, 0);
    row->addStretch();
    row->addWidget(sheet, 1);
    row->addStretch();
    m_column = new QVBoxLayout(sheet);
    m_column->setContentsMargins(0, 12, 0, 16);
    m_column->setSpacing(0);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setBackgroundRole(QPalette::Base);
    page->setAutoFillBackground(false);
    setWidget(page);
    page->setBackgroundRole(QPalette::Base);
    viewport()->setBackgroundRole(QPalette::Base);
    new OverlayScrollBar(*this);
}

/// Activates the layout, so that the page has its height before the first paint.
void ScrollColumn::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    widget()->layout()->activate();
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &request);
}

} // namespace vexmoor
