#pragma once

#include "Accent.h"

#include "skins/Skin.h"

#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace vexmoor {

/// Draws menus in the skin's colours: round corners, a round highlight in the accent, section
/// titles, and check boxes before the text. Main thread.
class MenuStyle : public QProxyStyle {
    Q_OBJECT

  public:
    /// If `translucent`, menus have translucent windows and smooth corners; otherwise the corners
    /// are masked.
    MenuStyle(const Skin& skin, bool translucent) : m_skin(skin), m_translucent(translucent) {}

    /// The prefix of a title for each level of indentation.
    static constexpr QChar kIndentation{0x2003};

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

  private:
    void drawItem(const QStyleOptionMenuItem& item, QPainter& painter) const;
    void drawSeparator(const QStyleOptionMenuItem& item, QPainter& painter) const;
    void drawPanel(const QStyleOption& option, QPainter& painter) const;

    Skin m_skin;
    bool m_translucent;
};

} // namespace vexmoor
