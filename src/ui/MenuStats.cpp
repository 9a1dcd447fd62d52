#include "MenuStats.h"

#include "TextStyle.h"

#include "disposal/Ledger.h"
#include "progression/Progression.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vexmoor {
namespace {

constexpr int kWidth = 280;
constexpr int kWidest = 340; ///< maximum width before the caption wraps
constexpr QMargins kPadding{14, 6, 14, 6};
constexpr int kBetweenRows = 8;
constexpr int kBetweenStatistics = 18;

/// Sets the colour for all states, since the widget is disabled in a menu.
void colour(QLabel& label, const QColor& colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, colour);
    label.setPalette(palette);
}

} // namespace

MenuStats::MenuStats(Ledger& ledger, Progression& progression, Clock clock, QWidget* parent)
    : QWidget(parent), m_ledger(ledger), m_progression(progression), m_clock(std::move(clock)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kPadding);
    column->setSpacing(kBetweenRows);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kBetweenStatistics);
    for (Statistic& statistic : m_statistics) {
        auto* const pair = new QVBoxLayout;
        pair->setSpacing(0);
        pair->addWidget(statistic.value = makeLine());
        pair->addWidget(statistic.label = makeLine());
        row->addLayout(pair);
    }
    row->addStretch();
    column->addLayout(row);
    column->addWidget(m_caption = makeLine());
    m_caption->setWordWrap(true);
    restyle();
    const auto refreshed = [this](const auto&) { refresh(); };
    m_subscriptions.push_back(ledger.count.subscribe(refreshed));
    m_subscriptions.push_back(ledger.bytes.subscribe(refreshed));
    m_subscriptions.push_back(ledger.days.subscribe(refreshed));
    m_subscriptions.push_back(progression.subscribe(refreshed));
}

QLabel* MenuStats::makeLine() {
    auto* const line = new QLabel(this);
    line->setTextFormat(Qt::PlainText);
    return line;
}

void MenuStats::refresh() {
    const auto text = MenuStatsText::of(m_ledger, m_progression.progress(), m_clock());
    for (std::size_t i = 0; i < m_statistics.size(); ++i) {
        m_statistics[i].value->setText(text.statistics[i].value);
        m_statistics[i].label->setText(text.statistics[i].label);
        m_statistics[i].value->setAccessibleName(text.statistics[i].whole);
    }
    m_caption->setText(text.caption);
    setAccessibleName(text.line());
    setAccessibleDescription(text.caption);
    // A menu uses only the size hint, not height for width.
    const int width = neededWidth();
    layout()->invalidate();
    setFixedSize(width, layout()->totalHeightForWidth(width));
}

int MenuStats::neededWidth() const {
    const int caption =
        m_caption->fontMetrics().horizontalAdvance(m_caption->text()) + kPadding.left() * 2 + 1;
    const int statistics = layout()->itemAt(0)->minimumSize().width() + kPadding.left() * 2;
    return std::max({kWidth, statistics, std::min(caption, kWidest)});
}

/// Aligns by the menu's direction, not by the text's.
void MenuStats::restyle() {
    const auto leading = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    for (QLabel* const line : findChildren<QLabel*>())
        line->setAlignment(leading | Qt::AlignAbsolute | Qt::AlignVCenter);
    QPalette colours = palette();
    colours.setCurrentColorGroup(QPalette::Active);
    for (const Statistic& statistic : m_statistics) {
        statistic.value->setFont(textFont(font(), 18, QFont::Bold));
        statistic.label->setFont(textFont(font(), 11));
        colour(*statistic.value, colours.color(QPalette::Text));
        colour(*statistic.label, secondaryText(colours));
    }
    m_caption->setFont(textFont(font(), 11));
    colour(*m_caption, secondaryText(colours));
}

void MenuStats::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::LayoutDirectionChange)
        restyle();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
