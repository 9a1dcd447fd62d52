#include "WeekChart.h"

#include "Accent.h"
#include "DayBar.h"
#include "FocusRing.h"
#include "TextStyle.h"
#include "WeekText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kBarsHeight = 58;
constexpr double kSeen = 1.5; ///< minimum contrast of a bar with the ground

QColor colourOf(Pixel pixel, const QColor& ground, const QColor& otherwise) {
    const QColor colour(pixel.r, pixel.g, pixel.b);
    return contrast(colour, ground) >= kSeen ? colour : otherwise;
}

} // namespace

WeekChart::WeekChart(QWidget* parent)
    : QWidget(parent), m_skin(Skin::iron()), m_focus(new FocusRing(*this)),
      m_caption(new QLabel(this)) {
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("The last seven days"));
    for (int day = 0; day < kDays; ++day) {
        DayBar*& bar = m_bars[static_cast<std::size_t>(day)];
        bar = new DayBar(this);
        connect(bar, &DayBar::pointed, this, [this, day](bool isUnderPointer) {
            if (isUnderPointer)
                describe(day);
            else if (m_hovered == day)
                describe(std::nullopt);
        });
    }
    layOut();
    recolour();
}

void WeekChart::layOut() {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(2);
    auto* const row = new QHBoxLayout;
    row->setSpacing(0); // the margins for the focus rings separate the bars
    for (DayBar* const bar : m_bars) {
        bar->setFixedHeight(kBarsHeight);
        row->addWidget(bar, 1);
    }
    column->addLayout(row);
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setAlignment(Qt::AlignCenter);
    m_caption->setMinimumWidth(0);
    m_caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    column->addWidget(m_caption);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

std::int64_t WeekChart::peak() const {
    std::int64_t most = 1;
    for (const auto& day : m_week)
        most = std::max(most, day.tally.count);
    return most;
}

void WeekChart::setWeek(const std::vector<Ledger::DayOfWeek>& week, bool grows) {
    if (week == m_week)
        return;
    m_week = week;
    const auto highest = static_cast<double>(peak());
    for (std::size_t i = 0; i < m_bars.size() && i < week.size(); ++i)
        m_bars[i]->setDay(WeekText::caption(week[i], i + 1 == week.size(), locale()),
                          static_cast<double>(week[i].tally.count) / highest, grows);
    describe(m_hovered);
}

void WeekChart::setSkin(const Skin& skin) {
    m_skin = skin;
    recolour();
}

QString WeekChart::caption() const {
    return m_caption->text();
}

void WeekChart::describe(std::optional<int> day) {
    m_hovered = day;
    const int shown = day.value_or(kDays - 1);
    for (int i = 0; i < kDays; ++i)
        m_bars[static_cast<std::size_t>(i)]->setDescribed(i == shown);
    const QString text = m_bars[static_cast<std::size_t>(shown)]->text();
    if (text == m_caption->text())
        return;
    m_caption->setText(text);
    setAccessibleDescription(text);
}

void WeekChart::keyPressEvent(QKeyEvent* event) {
    const int shown = m_hovered.value_or(kDays - 1);
    const int later = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return describe(std::clamp(shown - later, 0, kDays - 1));
    case Qt::Key_Right:
        return describe(std::clamp(shown + later, 0, kDays - 1));
    case Qt::Key_Home:
        return describe(0);
    case Qt::Key_End:
        return describe(kDays - 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void WeekChart::focusOutEvent(QFocusEvent* event) {
    describe(std::nullopt);
    QWidget::focusOutEvent(event);
}

void WeekChart::recolour() {
    const QColor ground = groundOf(palette());
    const Accent accent = Accent::of(m_skin, ground);
    const DayBar::Colours colours{colourOf(m_skin.acid, ground, accent.colour),
                                  colourOf(m_skin.acidDark, ground, accent.colour),
                                  hairline(palette()), accent.colour};
    for (DayBar* const bar : m_bars)
        bar->setColours(colours);
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, secondaryText(palette()));
    m_caption->setPalette(faint);
    m_caption->setFont(textFont(font(), 12));
    update();
}

void WeekChart::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    QWidget::changeEvent(event);
}

void WeekChart::paintEvent(QPaintEvent*) {
    if (!m_focus->isShown())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Accent::of(m_skin, groundOf(palette())).colour, 2));
    const QRectF line(m_caption->geometry());
    const double half =
        std::min(line.width(),
                 QFontMetricsF(m_caption->font()).horizontalAdvance(m_caption->text()) + 20) /
        2;
    painter.drawRoundedRect(QRectF(line.center().x() - half, line.top(), 2 * half, line.height())
                                .adjusted(1, 1, -1, -1),
                            7, 7);
}

} // namespace vexmoor
