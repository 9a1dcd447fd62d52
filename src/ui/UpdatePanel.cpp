#include "UpdatePanel.h"

#include "AccentButton.h"
#include "CauldronView.h"
#include "TextStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

QLabel* makeLine(const QString& text, const QFont& font, const QColor& colour, QWidget* parent) {
    auto* const line = new QLabel(text, parent);
    line->setFont(font);
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, colour);
    line->setPalette(palette);
    return line;
}

} // namespace

UpdatePanel::UpdatePanel(const Skin& skin, const MakeFrameTimer& makeTimer) {
    setWindowTitle(tr("Check for Updates"));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(20, 20, 20, 20);
    row->setSpacing(16);
    row->setSizeConstraint(QLayout::SetFixedSize);
    const int side = CauldronView::crispSide(72, devicePixelRatioF());
    row->addWidget(new CauldronView(skin, side, this, makeTimer));
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    row->addLayout(column);
    const QString title = tr("Checking for Updates…");
    setAccessibleName(title);
    column->addStretch();
    column->addWidget(makeLine(title, textFont(font(), 13.5, QFont::DemiBold),
                               palette().color(QPalette::Text), this));
    column->addWidget(makeLine(tr("Asking the system's package service."), textFont(font(), 12),
                               secondaryText(palette()), this));
    column->addSpacing(12);
    auto* const cancel = new AccentButton(tr("Cancel"), this, AccentButton::Kind::plain);
    cancel->setAccent(Accent::of(skin, groundOf(palette())));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    column->addWidget(cancel, 0, Qt::AlignRight);
    column->addStretch();
}

void UpdatePanel::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), groundOf(palette()));
}

} // namespace vexmoor
