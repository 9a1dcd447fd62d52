#include "StatsPoster.h"

#include "AccentButton.h"
#include "base/Text.h"
#include "DissolveBadge.h"
#include "Figure.h"
#include "Glow.h"
#include "TextStyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kMargin = 20; ///< at the sides
constexpr int kWidestColumn = 400;
constexpr int kBetween = 24; ///< two figures
constexpr int kSmallestPot = 136;

} // namespace

StatsPoster::StatsPoster(const MakeFrameTimer& makeTimer, QWidget* parent)
    : QWidget(parent), m_skin(Skin::iron()), m_stage(new QWidget(this)),
      m_pot(new CauldronView(m_skin, kSmallestPot, m_stage, makeTimer)),
      m_badge(new DissolveBadge(this)), m_count(new Figure(46, this)),
      m_bytes(new Figure(22, this)), m_streak(new Figure(22, this)), m_today(new QLabel(this)),
      m_achievements(new QLabel(this)), m_test(new AccentButton(tr("Test the flames"), this)) {
    layOut();
    connect(m_test, &QPushButton::clicked, this, &StatsPoster::testFlamesRequested);
    recolour();
}

void StatsPoster::layOut() {
    auto* const sheet = new QWidget(this);
    sheet->setMaximumWidth(kWidestColumn);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, 16, kMargin, 20);
    row->addStretch();
    row->addWidget(sheet, 1);
    row->addStretch();
    auto* const column = new QVBoxLayout(sheet);
    column->setContentsMargins({});
    column->setSpacing(0);
    QSizePolicy stays = m_badge->sizePolicy();
    stays.setRetainSizeWhenHidden(true); // so that nothing jumps when the mode changes
    m_badge->setSizePolicy(stays);
    column->addWidget(m_badge, 0, Qt::AlignHCenter);
    m_stage->setMinimumHeight(kSmallestPot);
    m_stage->installEventFilter(this);
    column->addWidget(m_stage, 1);
    column->addSpacing(12);
    column->addWidget(m_count);
    column->addSpacing(16);
    auto* const pair = new QHBoxLayout;
    pair->setSpacing(kBetween);
    pair->addWidget(m_bytes, 1);
    pair->addWidget(m_streak, 1);
    column->addLayout(pair);
    column->addSpacing(20);
    for (QLabel* const line : {m_today, m_achievements}) {
        line->setTextFormat(Qt::PlainText);
        line->setAlignment(Qt::AlignHCenter);
        line->setWordWrap(true);
        column->addWidget(line);
    }
    column->addSpacing(16);
    column->addWidget(m_test, 0, Qt::AlignHCenter);
}

QSize StatsPoster::minimumSizeHint() const {
    return layout()->totalMinimumSize().expandedTo({360, 520});
}

void StatsPoster::setText(const StatsText& text) {
    m_count->setFigure(text.count, text.countCaption);
    m_bytes->setFigure(text.bytes, text.bytesCaption);
    m_streak->setFigure(text.streak, text.streakCaption);
    m_today->setText(text.today);
    m_achievements->setText(text.achievements);
}

void StatsPoster::setSkin(const Skin& skin) {
    m_skin = skin;
    m_pot->setSkin(skin);
    m_pot->setAccessibleName(QString::fromStdString(text("%1 cauldron", {text(skin.name)})));
    recolour();
}

void StatsPoster::setDissolving(bool dissolving) {
    m_badge->setVisible(dissolving);
}

void StatsPoster::recolour() {
    m_test->setAccent(Accent::of(m_skin, groundOf(palette())));
    for (QLabel* const line : {m_today, m_achievements}) {
        QPalette faint = palette();
        faint.setColor(QPalette::WindowText, secondaryText(palette()));
        line->setPalette(faint);
        line->setFont(textFont(font(), 12.5));
    }
    update();
}

void StatsPoster::placePot() {
    const QSize room = m_stage->size();
    const int most = std::min(room.width() - 2 * kMargin, room.height());
    const int side = CauldronView::crispSide(std::max(most, kSmallestPot), devicePixelRatioF());
    m_pot->setSide(side);
    m_pot->move((room.width() - side) / 2, (room.height() - side) / 2);
    update();
}

bool StatsPoster::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_stage && event->type() == QEvent::Resize)
        placePot();
    return QWidget::eventFilter(watched, event);
}

void StatsPoster::showEvent(QShowEvent*) {
    placePot();
}

void StatsPoster::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    QWidget::changeEvent(event);
}

void StatsPoster::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), groundOf(palette()));
    const QRect pot(m_pot->mapTo(this, QPoint(0, 0)), m_pot->size());
    const QColor ground = groundOf(palette());
    paintGlow(painter, pot, Accent::of(m_skin, ground).glow, ground);
    const QRect bytes(m_bytes->mapTo(this, QPoint(0, 0)), m_bytes->size());
    painter.fillRect(bytes.right() + kBetween / 2, bytes.top() + 4, 1, bytes.height() - 8,
                     hairline(palette()));
}

} // namespace vexmoor
