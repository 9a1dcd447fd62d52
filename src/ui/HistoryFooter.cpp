#include "HistoryFooter.h"

#include "Column.h"
#include "FlameButton.h"
#include "HistoryText.h"
#include "TextStyle.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kRing = 4; ///< margin around a button's surface
constexpr int kPadding = 8;

} // namespace

HistoryFooter::HistoryFooter(QWidget* parent)
    : QWidget(parent), m_skin(Skin::iron()), m_restore(new AccentButton({}, this)),
      m_delete(new AccentButton({}, this, AccentButton::Kind::plain)),
      m_test(new FlameButton(tr("Test the flames"), this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_restore, &QPushButton::clicked, this, &HistoryFooter::restoreClicked);
    connect(m_delete, &QPushButton::clicked, this, &HistoryFooter::deleteClicked);
    connect(m_test, &QPushButton::clicked, this, &HistoryFooter::testClicked);
    setCounts(0, 0);
    recolour();
}

void HistoryFooter::setSkin(const Skin& skin) {
    m_skin = skin;
    recolour();
}

void HistoryFooter::setCounts(std::size_t restorable, std::size_t deletable) {
    m_restore->setText(HistoryText::restoreTitle(std::max<std::size_t>(1, restorable)));
    m_delete->setText(HistoryText::deleteTitle(std::max<std::size_t>(1, deletable)));
    m_restore->setVisible(restorable > 0);
    m_delete->setVisible(deletable > 0);
    layOut();
}

QSize HistoryFooter::sizeHint() const {
    return {320, m_restore->sizeHint().height() + 2 * kPadding};
}

QSize HistoryFooter::minimumSizeHint() const {
    return {320, sizeHint().height()};
}

/// Places the buttons for selected items at the leading side and the test button at the other side,
/// if it fits.
void HistoryFooter::layOut() {
    const int inset = columnInset(width()) - kRing;
    const QRect room(inset, 1, width() - 2 * inset, height() - 1);
    int left = room.left();
    const auto place = [&](QWidget* button, int x, QSize size) {
        button->setGeometry(QStyle::visualRect(
            layoutDirection(), rect(), {QPoint(x, room.center().y() - size.height() / 2), size}));
    };
    for (AccentButton* const button : {m_restore, m_delete}) {
        if (button->isHidden())
            continue;
        const QSize size = button->sizeHint();
        const int width = std::min(size.width(), room.right() + 1 - left);
        place(button, left, {width, size.height()});
        left += width;
    }
    m_test->setCompact(false);
    m_test->setCompact(left + m_test->sizeHint().width() > room.right() + 1);
    m_test->setVisible(left + m_test->sizeHint().width() <=
                       room.right() + 1); // the menus also contain it
    place(m_test, room.right() + 1 - m_test->sizeHint().width(), m_test->sizeHint());
}

void HistoryFooter::recolour() {
    const Accent accent = Accent::of(m_skin, groundOf(palette()));
    m_restore->setAccent(accent);
    m_delete->setAccent(accent);
    m_test->setAccent(accent);
    update();
}

void HistoryFooter::resizeEvent(QResizeEvent*) {
    layOut();
}

void HistoryFooter::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
        layOut();
    QWidget::changeEvent(event);
}

void HistoryFooter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), groundOf(palette()));
    painter.fillRect(QRect(0, 0, width(), 1), hairline(palette()));
}

} // namespace vexmoor
