#include "HistoryDelegate.h"

#include "Accent.h"
#include "HistoryModel.h"
#include "HistoryText.h"
#include "RowThumbnail.h"
#include "Symbol.h"
#include "TextStyle.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

constexpr double kLift = 7;     ///< points by which a restored row rises
constexpr double kAway = 0.5;   ///< thumbnail opacity of items that are not in the Bin
constexpr double kCorner = 7;   ///< of the button
constexpr int kSymbolSide = 12; ///< in the button

QColor groundOfRow(const QStyleOptionViewItem& option, const Accent& accent) {
    const QColor ground = groundOf(option.palette);
    if (option.state & QStyle::State_Selected)
        return mixed(ground, accent.colour, isDark(ground) ? 0.22 : 0.14);
    if (option.state & QStyle::State_MouseOver)
        return mixed(ground, option.palette.color(QPalette::Text), 0.03);
    return ground;
}

} // namespace

HistoryDelegate::HistoryDelegate(QObject* parent)
    : QStyledItemDelegate(parent), m_skin(Skin::iron()) {}

void HistoryDelegate::setLifting(const Uuid& item, double progress) {
    if (progress < 1)
        m_lifting[item] = progress;
    else
        m_lifting.erase(item);
}

QSize HistoryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {0, HistoryRow::height(option.font)};
}

void HistoryDelegate::paintGround(QPainter& painter, const QStyleOptionViewItem& option) const {
    const Accent accent = Accent::of(m_skin, groundOf(option.palette));
    painter.fillRect(option.rect, groundOfRow(option, accent));
    const QRect line(option.rect.left(), option.rect.bottom(), option.rect.width(), 1);
    painter.fillRect(line, hairline(option.palette));
    if (option.state & QStyle::State_Selected) // marked by more than colour
        painter.fillRect(
            QStyle::visualRect(option.direction, option.rect,
                               QRect(option.rect.topLeft(), QSize(3, option.rect.height() - 1))),
            accent.colour);
    if (!(option.state & QStyle::State_HasFocus) ||
        !(option.state & QStyle::State_KeyboardFocusChange))
        return;
    painter.setPen(QPen(accent.colour, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(2, 2, -2, -3), 4, 4);
}

void HistoryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const auto& model = dynamic_cast<const HistoryModel&>(*index.model());
    const Sacrifice& item = model.at(index);
    const HistoryRow row =
        HistoryRow::of(option.rect, option.font, option.direction, item.canRestore());
    const QPalette& palette = option.palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(*painter, option);

    double shown = 1;
    if (const auto lifting = m_lifting.find(item.id); lifting != m_lifting.end()) {
        shown = lifting->second;
        painter->translate(0, -kLift * std::sin(std::numbers::pi * shown));
    }
    const QString name = index.data(Qt::DisplayRole).toString();
    painter->setOpacity(item.canRestore() ? 1 : kAway);
    painter->setFont(option.font);
    paintThumbnail(*painter, row.thumbnail, index.data(Qt::DecorationRole).value<QImage>(),
                   index.data(HistoryModel::previewRole).toBool(), name, palette);
    painter->setOpacity(1);
    const QFont nameFont = HistoryRow::nameFont(option.font);
    const auto leading = (option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft) |
                         Qt::AlignAbsolute | Qt::AlignVCenter;
    painter->setFont(nameFont);
    painter->setPen(palette.color(QPalette::Text));
    painter->drawText(row.name, static_cast<int>(leading),
                      QFontMetrics(nameFont).elidedText(name, Qt::ElideMiddle, row.name.width()));
    painter->setOpacity(shown);
    const QFont statusFont = HistoryRow::statusFont(option.font);
    const QColor faint =
        Shades{palette.color(QPalette::Text), secondaryText(palette), palette.color(QPalette::Text)}
            .readableOn(groundOfRow(option, Accent::of(m_skin, groundOf(palette))));
    paintSymbol(*painter, row.symbol, HistoryText::symbol(item), faint);
    painter->setFont(statusFont);
    painter->setPen(faint);
    const QFontMetrics metrics(statusFont);
    QString status = index.data(HistoryModel::statusRole).toString();
    if (metrics.horizontalAdvance(status) > row.status.width())
        status = index.data(HistoryModel::shortStatusRole).toString();
    painter->drawText(row.status, static_cast<int>(leading),
                      metrics.elidedText(status, Qt::ElideRight, row.status.width()));
    if (!row.button.isEmpty())
        paintButton(*painter, option, row.button, index);
    painter->restore();
}

void HistoryDelegate::paintButton(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QRect& button, const QModelIndex& index) const {
    const QColor ground = groundOf(option.palette);
    const QColor text = option.palette.color(QPalette::Text);
    const bool isUnderPointer = m_pointer.button == index;
    const QColor surface = isDark(ground) ? mixed(ground, text, 0.1) : ground;
    painter.setPen(QPen(mixed(ground, text, isDark(ground) ? 0.22 : 0.18), 1));
    painter.setBrush(isUnderPointer ? mixed(surface, text, m_pointer.isPressed ? 0.16 : 0.08)
                                    : surface);
    painter.drawRoundedRect(QRectF(button).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    const QFont font = HistoryRow::buttonFont(option.font);
    const int width = QFontMetrics(font).horizontalAdvance(HistoryRow::buttonText());
    constexpr int kGap = 5;
    const QRect inside(button.left() + (button.width() - width - kGap - kSymbolSide) / 2,
                       button.top(), width + kGap + kSymbolSide, button.height());
    const QRect symbol(inside.left(), inside.center().y() - kSymbolSide / 2 + 1, kSymbolSide,
                       kSymbolSide);
    const QRect words(inside.left() + kSymbolSide + kGap, inside.top(), width, inside.height());
    paintSymbol(painter, QStyle::visualRect(option.direction, inside, symbol), Symbol::putBack,
                text);
    painter.setFont(font);
    painter.setPen(text);
    painter.drawText(QStyle::visualRect(option.direction, inside, words), Qt::AlignCenter,
                     HistoryRow::buttonText());
}

} // namespace vexmoor
