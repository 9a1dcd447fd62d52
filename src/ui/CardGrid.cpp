#include "CardGrid.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kGap = 4; ///< the cards include the room for their rings
constexpr int kLeastColumns = 3;
constexpr int kCardWidth = 150; ///< preferred width with more than the minimum number of columns

} // namespace

CardGrid::CardGrid(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void CardGrid::setCards(std::vector<QWidget*> cards) {
    m_cards = std::move(cards);
    for (QWidget* const card : m_cards)
        card->setParent(this);
    updateGeometry();
    place();
}

int CardGrid::columnsIn(int width) const {
    return std::max(kLeastColumns, (width + kGap) / (kCardWidth + kGap));
}

int CardGrid::cardHeight() const {
    return m_cards.empty() ? 0 : m_cards.front()->sizeHint().height();
}

int CardGrid::heightForWidth(int width) const {
    const int columns = columnsIn(width);
    const int rows = (static_cast<int>(m_cards.size()) + columns - 1) / columns;
    return std::max(0, rows * (cardHeight() + kGap) - kGap);
}

void CardGrid::place() {
    const int columns = this->columns();
    const int height = cardHeight();
    for (int index = 0; index < static_cast<int>(m_cards.size()); ++index) {
        // Widths differ by a point, so that the row is filled.
        const int column = index % columns;
        const int left = column * (width() + kGap) / columns;
        const int right = (column + 1) * (width() + kGap) / columns - kGap;
        const QRect card(left, index / columns * (height + kGap), right - left, height);
        m_cards[static_cast<std::size_t>(index)]->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), card));
    }
}

bool CardGrid::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange ||
        event->type() == QEvent::FontChange) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void CardGrid::resizeEvent(QResizeEvent*) {
    place();
}

} // namespace vexmoor
