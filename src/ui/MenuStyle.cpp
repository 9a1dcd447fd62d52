#include "MenuStyle.h"

#include "TextStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace vexmoor {
namespace {

using Item = QStyleOptionMenuItem;

// In points.
constexpr int kText = 14;          ///< from the menu's edge to the text
constexpr int kHighlightInset = 5; ///< from the menu's edge to the highlight
constexpr int kAboveText = 5;      ///< and below
constexpr int kBox = 14;           ///< side of a check box
constexpr int kIcon = 16;
constexpr int kGap = 8; ///< between check box, icon and text
constexpr int kLevel = 20;
constexpr int kArrow = 16;
constexpr int kLine = 11; ///< height of a separator including its margins
constexpr int kWidest = 420;
constexpr int kMargin = 6; ///< above the first item and below the last
constexpr double kCorner = 10;
constexpr double kHighlightCorner = 6;

bool isCheckable(const Item& item) {
    return item.checkType != Item::NotCheckable;
}

int levelsOf(const QString& text) {
    const auto end =
        std::ranges::find_if_not(text, [](QChar c) { return c == MenuStyle::kIndentation; });
    return static_cast<int>(end - text.begin());
}

/// Returns the distance from the menu's leading edge to the text.
int textStart(const Item& item) {
    return kText + kLevel * levelsOf(item.text) + (isCheckable(item) ? kBox + kGap : 0) +
           (item.icon.isNull() ? 0 : kIcon + kGap);
}

int textEnd(const Item& item) {
    return item.menuItemType == Item::SubMenu ? kText + kArrow : kText;
}

QFont sectionFont(const Item& item) {
    return textFont(item.font, 11, QFont::DemiBold);
}

/// Returns the palette with the active group, because disabled items use it too.
QPalette activeOf(const QStyleOption& option) {
    QPalette palette = option.palette;
    palette.setCurrentColorGroup(QPalette::Active);
    return palette;
}

QColor disabledText(const QPalette& palette) {
    return mixed(palette.color(QPalette::Text), groundOf(palette), 0.5);
}

/// Returns a part of the item, measured from the leading edge.
QRect part(const Item& item, int start, int width, int height) {
    const QRect& all = item.rect;
    return QStyle::visualRect(
        item.direction, all,
        QRect(all.left() + start, all.top() + (all.height() - height) / 2, width, height));
}

void drawTick(QPainter& painter, const QRectF& box, const QColor& colour) {
    QPainterPath tick;
    tick.moveTo(box.left() + box.width() * 0.24, box.top() + box.height() * 0.53);
    tick.lineTo(box.left() + box.width() * 0.43, box.top() + box.height() * 0.71);
    tick.lineTo(box.left() + box.width() * 0.77, box.top() + box.height() * 0.31);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(tick);
}

/// Draws a tick for a choice among several, and a tick in a box for a switch.
void drawCheck(QPainter& painter, const Item& item, const QColor& surface, const QColor& tick,
               const QColor& outline) {
    const QRectF box = QRectF(part(item, kText + kLevel * levelsOf(item.text), kBox, kBox))
                           .adjusted(0.5, 0.5, -0.5, -0.5);
    if (item.checkType == Item::Exclusive) {
        if (item.checked)
            drawTick(painter, box, surface);
        return;
    }
    painter.setPen(QPen(item.checked ? surface : outline, 1.2));
    painter.setBrush(item.checked ? QBrush(surface) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box, 3.5, 3.5);
    if (item.checked)
        drawTick(painter, box, tick);
}

void drawIcon(QPainter& painter, const Item& item, const QColor& colour) {
    const int start = textStart(item) - kGap - kIcon;
    QPixmap icon = item.icon.pixmap(QSize(kIcon, kIcon), painter.device()->devicePixelRatioF());
    QPainter tint(&icon);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(QRect(QPoint(), icon.deviceIndependentSize().toSize()), colour);
    tint.end();
    painter.drawPixmap(part(item, start, kIcon, kIcon), icon);
}

void drawArrow(QPainter& painter, const Item& item, const QColor& colour) {
    constexpr double kReach = 3.5;
    const QRectF room = part(item, item.rect.width() - kText - kArrow / 2, kArrow / 2, kArrow);
    const double tip = item.direction == Qt::RightToLeft ? -kReach / 2 : kReach / 2;
    const QPointF middle = room.center();
    QPainterPath arrow;
    arrow.moveTo(middle + QPointF(-tip, -kReach));
    arrow.lineTo(middle + QPointF(tip, 0));
    arrow.lineTo(middle + QPointF(-tip, kReach));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrow);
}

void drawText(QPainter& painter, const Item& item, const QColor& colour) {
    const int start = textStart(item);
    const QRect room =
        part(item, start, item.rect.width() - start - textEnd(item), item.rect.height());
    const QString text = item.fontMetrics.elidedText(
        item.text.mid(levelsOf(item.text)), Qt::ElideMiddle, room.width(), Qt::TextHideMnemonic);
    painter.setFont(item.font);
    painter.setPen(colour);
    painter.drawText(room,
                     static_cast<int>(QStyle::visualAlignment(item.direction, Qt::AlignLeft) |
                                      Qt::AlignVCenter) |
                         Qt::TextSingleLine | Qt::TextHideMnemonic,
                     text);
}

QPainterPath outlineOf(const QRectF& rect) {
    QPainterPath path;
    path.addRoundedRect(rect, kCorner, kCorner);
    return path;
}

} // namespace

void MenuStyle::drawItem(const Item& item, QPainter& painter) const {
    const QPalette palette = activeOf(item);
    const QColor ground = groundOf(palette);
    const Accent accent = Accent::of(m_skin, ground);
    const bool isEnabled = item.state.testFlag(State_Enabled);
    const bool isChosen = isEnabled && item.state.testFlag(State_Selected);
    QColor text = isEnabled ? palette.color(QPalette::Text) : disabledText(palette);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChosen) {
        text = accent.text;
        painter.setPen(Qt::NoPen);
        painter.setBrush(accent.colour);
        painter.drawRoundedRect(item.rect.adjusted(kHighlightInset, 0, -kHighlightInset, 0),
                                kHighlightCorner, kHighlightCorner);
    }
    if (isCheckable(item))
        drawCheck(painter, item, isChosen ? accent.text : accent.colour,
                  isChosen ? accent.colour : accent.text,
                  isChosen ? accent.text : secondaryText(palette));
    if (!item.icon.isNull())
        drawIcon(painter, item, isChosen || !isEnabled ? text : secondaryText(palette));
    drawText(painter, item, text);
    if (item.menuItemType == Item::SubMenu)
        drawArrow(painter, item, isChosen ? text : secondaryText(palette));
}

void MenuStyle::drawSeparator(const Item& item, QPainter& painter) const {
    const QPalette palette = activeOf(item);
    if (item.text.isEmpty()) {
        painter.fillRect(item.rect.left(), item.rect.center().y(), item.rect.width(), 1,
                         hairline(palette));
        return;
    }
    painter.setFont(sectionFont(item));
    painter.setPen(secondaryText(palette));
    painter.drawText(
        item.rect.adjusted(kText, 0, -kText, -kAboveText / 2),
        static_cast<int>(visualAlignment(item.direction, Qt::AlignLeft) | Qt::AlignBottom) |
            Qt::TextSingleLine,
        item.text);
}

void MenuStyle::drawPanel(const QStyleOption& option, QPainter& painter) const {
    const QPalette palette = activeOf(option);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(mixed(groundOf(palette), palette.color(QPalette::Text), 0.18));
    painter.setBrush(groundOf(palette));
    painter.drawPath(outlineOf(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5)));
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelMenu)
        drawPanel(*option, *painter);
    else if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const Item*>(option);
    if (element == CE_MenuItem && item != nullptr) {
        painter->save();
        if (item->menuItemType == Item::Separator)
            drawSeparator(*item, *painter);
        else
            drawItem(*item, *painter);
        painter->restore();
    } else if (element == CE_MenuScroller) {
        const bool isDown = option->state.testFlag(State_DownArrow);
        QStyleOption arrow(*option);
        arrow.rect = option->rect.adjusted(0, 4, 0, -4);
        QProxyStyle::drawPrimitive(isDown ? PE_IndicatorArrowDown : PE_IndicatorArrowUp, &arrow,
                                   painter, widget);
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const Item*>(option);
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (item->menuItemType == Item::Separator) {
        if (item->text.isEmpty())
            return {2 * kText, kLine};
        const QFontMetrics metrics(sectionFont(*item));
        return {2 * kText + metrics.horizontalAdvance(item->text),
                metrics.height() + 2 * kAboveText - kAboveText / 2};
    }
    const int text = item->fontMetrics
                         .boundingRect(QRect(), Qt::TextSingleLine | Qt::TextHideMnemonic,
                                       item->text.mid(levelsOf(item->text)))
                         .width();
    return {std::min(textStart(*item) + text + 2 + textEnd(*item), kWidest),
            std::max(item->fontMetrics.height(), kIcon) + 2 * kAboveText};
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
    case PM_MenuHMargin:
        return 0;
    case PM_MenuVMargin:
        return kMargin;
    case PM_MenuScrollerHeight:
        return kIcon;
    case PM_SubMenuOverlap:
        return -2;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    switch (hint) {
    case SH_Menu_SupportsSections:
    case SH_Menu_MouseTracking:
    case SH_Menu_Scrollable:
    case SH_Menu_SloppySubMenus:
    case SH_Menu_SpaceActivatesItem:
        return 1;
    case SH_Menu_AllowActiveAndDisabled:
    case SH_Menu_KeyboardSearch:
        return 0;
    case SH_Menu_Mask:
        if (auto* const mask = qstyleoption_cast<QStyleHintReturnMask*>(data);
            mask != nullptr && !m_translucent) {
            mask->region = outlineOf(option->rect).toFillPolygon().toPolygon();
            return 1;
        }
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

} // namespace vexmoor
