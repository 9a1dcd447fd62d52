#include "FilterField.h"

#include "Accent.h"
#include "Column.h"
#include "Symbol.h"
#include "TextStyle.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace vexmoor {
namespace {

constexpr int kPadding = 8; ///< above and below
constexpr int kHeight = 32;
constexpr int kSymbol = 14;

} // namespace

FilterField::FilterField(QWidget* parent)
    : QWidget(parent), m_skin(Skin::iron()), m_edit(new QLineEdit(this)) {
    m_edit->setFrame(false);
    m_edit->setPlaceholderText(tr("Filter by name"));
    m_edit->setAccessibleName(m_edit->placeholderText());
    m_edit->installEventFilter(this);
    connect(m_edit, &QLineEdit::textChanged, this, &FilterField::changed);
    setFocusProxy(m_edit);
    setFixedHeight(kHeight + 2 * kPadding);
    recolour();
    hide();
}

void FilterField::setSkin(const Skin& skin) {
    m_skin = skin;
    update();
}

void FilterField::open() {
    show();
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
}

void FilterField::close() {
    hide();
    m_edit->clear();
}

QString FilterField::text() const {
    return m_edit->text();
}

bool FilterField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            close();
            emit left();
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit left();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FilterField::resizeEvent(QResizeEvent*) {
    const int inset = columnInset(width());
    m_edit->setGeometry(QStyle::visualRect(layoutDirection(), rect(),
                                           QRect(inset + kSymbol + 16, kPadding + 3,
                                                 width() - 2 * inset - kSymbol - 24, kHeight - 6)));
}

void FilterField::recolour() {
    const QColor ground = mixed(groundOf(palette()), palette().color(QPalette::Text), 0.06);
    QPalette inside = palette();
    inside.setColor(QPalette::Base, ground);
    inside.setColor(QPalette::PlaceholderText, secondaryText(palette()));
    m_edit->setPalette(inside);
    m_edit->setFont(textFont(font(), 13));
    update();
}

void FilterField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    QWidget::changeEvent(event);
}

void FilterField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int inset = columnInset(width());
    const QRectF field(inset, kPadding, width() - 2 * inset, kHeight);
    const QColor ground = groundOf(palette());
    painter.setPen(m_edit->hasFocus() ? QPen(Accent::of(m_skin, ground).colour, 2)
                                      : QPen(Qt::NoPen));
    painter.setBrush(m_edit->palette().color(QPalette::Base));
    painter.drawRoundedRect(field.adjusted(1, 1, -1, -1), 7, 7);
    const QRect symbol(inset + 10, kPadding + (kHeight - kSymbol) / 2, kSymbol, kSymbol);
    paintSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), symbol), Symbol::search,
                secondaryText(palette()));
    painter.fillRect(QRect(0, height() - 1, width(), 1), hairline(palette()));
}

} // namespace vexmoor
