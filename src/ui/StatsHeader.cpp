#include "StatsHeader.h"

#include "DissolveBadge.h"
#include "Figure.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

constexpr int kStage = 114; ///< the pot is sharp at all common scales

} // namespace

StatsHeader::StatsHeader(const MakeFrameTimer& makeTimer, QWidget* parent)
    : QWidget(parent), m_stage(new QWidget(this)),
      m_pot(new CauldronView(Skin::iron(), kStage, m_stage, makeTimer)), m_count(new Figure(this)),
      m_bytes(new Figure(this)), m_streak(new Figure(this)), m_badge(new DissolveBadge(this)) {
    layOut();
    m_badge->hide();
    connect(m_badge, &DissolveBadge::clicked, this, &StatsHeader::settingsRequested);
}

void StatsHeader::layOut() {
    m_stage->setFixedSize(kStage, kStage);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(20);
    row->addWidget(m_stage, 0, Qt::AlignVCenter);
    auto* const column = new QVBoxLayout;
    column->setSpacing(0);
    column->addStretch();
    for (Figure* const figure : {m_count, m_bytes, m_streak})
        column->addWidget(figure);
    column->addSpacing(2);
    column->addWidget(m_badge, 0, Qt::AlignLeft); // the leading side
    column->addStretch();
    row->addLayout(column, 1);
    const int figures = 3 * m_count->sizeHint().height() + m_badge->sizeHint().height() + 2;
    setFixedHeight(std::max(kStage, figures));
}

void StatsHeader::setText(const StatsText& text) {
    m_count->setFigure(text.count, text.countCaption);
    m_bytes->setFigure(text.bytes, text.bytesCaption);
    m_streak->setFigure(text.streak, text.streakCaption);
}

void StatsHeader::setSkin(const Skin& skin) {
    m_pot->setSkin(skin);
    m_pot->setAccessibleName(
        tr("%1 cauldron")
            .arg(QString::fromUtf8(skin.name.data(), static_cast<qsizetype>(skin.name.size()))));
}

void StatsHeader::setDissolving(bool isDissolving) {
    m_badge->setVisible(isDissolving);
}

QRect StatsHeader::pot() const {
    return {m_pot->mapTo(this, QPoint(0, 0)), m_pot->size()};
}

void StatsHeader::showEvent(QShowEvent*) {
    const int side = CauldronView::crispSide(kStage, devicePixelRatioF());
    m_pot->setSide(side);
    m_pot->move((kStage - side) / 2, (kStage - side) / 2);
}

} // namespace vexmoor
