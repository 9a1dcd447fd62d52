#include "SkinsTab.h"

#include "AccessibleRole.h"
#include "CardGrid.h"
#include "FocusRing.h"
#include "RovingFocus.h"
#include "SkinCardView.h"
#include "TextStyle.h"

#include "progression/Progression.h"

#include <QEvent>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

constexpr int kWidest = 800;

} // namespace

SkinsTab::SkinsTab(Progression& progression, QWidget* parent)
    : ScrollColumn(kWidest, FocusRing::kRoom, parent), m_progression(progression),
      m_skin(Skin::named(progression.progress().skin)) {
    setAccessibleName(tr("Skins"));
    auto* const grid = new CardGrid;
    setAccessibleRole(*grid, QAccessible::List);
    grid->setAccessibleName(tr("Skins"));
    std::vector<QWidget*> widgets;
    for (const SkinCard& card : SkinCard::all(progression)) {
        auto* const view = new SkinCardView(card);
        connect(view, &SkinCardView::chosen, this,
                [this](const Skin& skin) { m_progression.select(skin); });
        m_cards.push_back(view);
        widgets.push_back(view);
    }
    grid->setCards(widgets);
    column().addWidget(grid);
    column().addStretch();
    m_focus = new RovingFocus(
        std::move(widgets), [grid] { return grid->columns(); }, this);
    connect(m_focus, &RovingFocus::moved, this,
            [this](QWidget* card) { ensureWidgetVisible(card, 0, 8); });
    recolour();
    refresh();
    m_subscription = progression.subscribe([this](const Progress&) {
        if (isVisible())
            refresh();
    });
}

void SkinsTab::setSkin(const Skin& skin) {
    m_skin = skin;
    recolour();
}

void SkinsTab::refresh() {
    auto view = m_cards.begin();
    for (const SkinCard& card : SkinCard::all(m_progression)) {
        (*view)->setCard(card);
        if (card.isChosen)
            m_focus->setStop(*view);
        ++view;
    }
}

void SkinsTab::recolour() {
    const Accent accent = Accent::of(m_skin, groundOf(palette()));
    for (SkinCardView* const card : m_cards)
        card->setAccent(accent);
}

void SkinsTab::showEvent(QShowEvent* event) {
    refresh();
    ScrollColumn::showEvent(event);
}

void SkinsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        recolour();
    ScrollColumn::changeEvent(event);
}

} // namespace vexmoor
