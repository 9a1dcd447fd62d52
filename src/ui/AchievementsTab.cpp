#include "AchievementsTab.h"

#include "AccessibleRole.h"
#include "AchievementRowView.h"
#include "RovingFocus.h"
#include "TextStyle.h"

#include "progression/Progression.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

constexpr int kWidest = 560;

} // namespace

AchievementsTab::AchievementsTab(Progression& progression, QWidget* parent)
    : ScrollColumn(kWidest, AchievementRowView::kInset, parent), m_progression(progression),
      m_skin(Skin::named(progression.progress().skin)), m_heading(new QLabel) {
    setAccessibleName(tr("Achievements"));
    setAccessibleRole(*column().parentWidget(), QAccessible::List);
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setContentsMargins(AchievementRowView::kInset, 0, AchievementRowView::kInset, 0);
    column().addWidget(m_heading);
    column().addSpacing(4);
    std::vector<QWidget*> stops;
    for (const AchievementRow& row : AchievementRow::all(progression.progress())) {
        m_rows.push_back(new AchievementRowView(row));
        stops.push_back(m_rows.back());
        column().addWidget(m_rows.back());
    }
    column().addStretch();
    const auto* const focus = new RovingFocus(
        std::move(stops), [] { return 1; }, this);
    connect(focus, &RovingFocus::moved, this,
            [this](QWidget* row) { ensureWidgetVisible(row, 0, 8); });
    recolour();
    refresh();
    m_subscription = progression.subscribe([this](const Progress&) {
        if (isVisible())
            refresh();
    });
}

void AchievementsTab::setSkin(const Skin& skin) {
    m_skin = skin;
    recolour();
}

void AchievementsTab::refresh() {
    m_heading->setText(AchievementRow::heading(m_progression.progress()));
    auto row = m_rows.begin();
    for (const AchievementRow& now : AchievementRow::all(m_progression.progress()))
        (*row++)->setRow(now);
}

void AchievementsTab::recolour() {
    m_heading->setFont(textFont(font(), 13.5, QFont::Bold));
    m_heading->setAlignment(Qt::AlignAbsolute | (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
    const Accent accent = Accent::of(m_skin, groundOf(palette()));
    for (AchievementRowView* const row : m_rows)
        row->setAccent(accent);
}

void AchievementsTab::showEvent(QShowEvent* event) {
    refresh();
    ScrollColumn::showEvent(event);
}

void AchievementsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::LayoutDirectionChange)
        recolour();
    ScrollColumn::changeEvent(event);
}

} // namespace vexmoor
