#include "WindowPalette.h"

#include "Accent.h"
#include "TextStyle.h"

#include <QApplication>

namespace vexmoor {
namespace {

struct Colours {
    QRgb window; ///< window background around the ground, and buttons
    QRgb base;
    QRgb alternate;
    QRgb text;
    QRgb tip;
    QRgb tipText;
    QRgb highlight;
    QRgb highlighted;
    QRgb link;
    QRgb visited;
    QRgb light; ///< this and the following roles are edges of surfaces
    QRgb midlight;
    QRgb mid;
    QRgb dark;
    QRgb shadow;
};

constexpr Colours kLight{.window = 0xffefeff0,
                         .base = 0xfffbfbfc,
                         .alternate = 0xfff3f3f5,
                         .text = 0xff1d1d1f,
                         .tip = 0xff2a292f,
                         .tipText = 0xfff2f2f4,
                         .highlight = 0xff2f66b5,
                         .highlighted = 0xffffffff,
                         .link = 0xff1f5fbf,
                         .visited = 0xff7a3fa8,
                         .light = 0xffffffff,
                         .midlight = 0xfff7f7f8,
                         .mid = 0xffc3c3c8,
                         .dark = 0xffa0a0a6,
                         .shadow = 0xff6c6c72};

constexpr Colours kDark{.window = 0xff2a292f,
                        .base = 0xff1e1d22,
                        .alternate = 0xff242329,
                        .text = 0xfff2f2f4,
                        .tip = 0xff3a3941,
                        .tipText = 0xfff2f2f4,
                        .highlight = 0xff3f6fb8,
                        .highlighted = 0xffffffff,
                        .link = 0xff7fb2ff,
                        .visited = 0xffc79bf2,
                        .light = 0xff45444d,
                        .midlight = 0xff38373f,
                        .mid = 0xff201f24,
                        .dark = 0xff151418,
                        .shadow = 0xff0b0a0d};

void setForEnabled(QPalette& palette, const Colours& colours) {
    const std::pair<QPalette::ColorRole, QRgb> roles[] = {
        {QPalette::Window, colours.window},
        {QPalette::Button, colours.window},
        {QPalette::Base, colours.base},
        {QPalette::AlternateBase, colours.alternate},
        {QPalette::WindowText, colours.text},
        {QPalette::Text, colours.text},
        {QPalette::ButtonText, colours.text},
        {QPalette::BrightText, colours.highlighted},
        {QPalette::ToolTipBase, colours.tip},
        {QPalette::ToolTipText, colours.tipText},
        {QPalette::Highlight, colours.highlight},
        {QPalette::HighlightedText, colours.highlighted},
        {QPalette::Link, colours.link},
        {QPalette::LinkVisited, colours.visited},
        {QPalette::Light, colours.light},
        {QPalette::Midlight, colours.midlight},
        {QPalette::Mid, colours.mid},
        {QPalette::Dark, colours.dark},
        {QPalette::Shadow, colours.shadow},
    };
    for (const auto& [role, colour] : roles)
        palette.setColor(QPalette::All, role, QColor(colour));
    palette.setColor(QPalette::All, QPalette::PlaceholderText,
                     mixed(colours.text, colours.base, 0.36));
}

void setForDisabled(QPalette& palette, const Colours& colours) {
    const QColor faint = mixed(colours.text, colours.window, 0.55);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::Link, QPalette::LinkVisited})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colours.mid));
}

} // namespace

QPalette windowPalette(bool dark) {
    const Colours& colours = dark ? kDark : kLight;
    QPalette palette;
    setForEnabled(palette, colours);
    setForDisabled(palette, colours);
    return palette;
}

void useWindowPalette(std::optional<bool> dark) {
    QApplication::setPalette(QPalette()); // resets to the platform's palette
    if (dark && isDark(groundOf(QApplication::palette())) != *dark)
        QApplication::setPalette(windowPalette(*dark));
}

} // namespace vexmoor
