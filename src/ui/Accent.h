#pragma once

#include "skins/Skin.h"

#include <QColor>

namespace vexmoor {

/// Returns the relative luminance of WCAG 2, from 0 (black) to 1 (white). Ignores alpha.
double relativeLuminance(const QColor& colour);

/// Returns the contrast ratio of WCAG 2, from 1 (same luminance) to 21 (black and white).
double contrast(const QColor& one, const QColor& other);

/// The minimum contrast for readable text (WCAG 2, level AA).
inline constexpr double kReadable = 4.5;

/// True if white has more contrast with `ground` than black.
bool isDark(const QColor& ground);

/// Blends two colours: `from` at share 0, `to` at 1. Opaque.
QColor mixed(const QColor& from, const QColor& to, double share);

/// Three shades of one hue.
struct Shades {
    QColor dark;
    QColor middle;
    QColor light;

    /// Returns the middle shade, lightened on a dark ground or darkened on a light one just enough
    /// to be readable.
    [[nodiscard]] QColor readableOn(const QColor& ground) const;
};

/// The colours of a window, derived from a skin's acid.
struct Accent {
    QColor colour; ///< text and surfaces on the ground; readable there
    QColor strong; ///< a surface of `colour` while hovered
    QColor text;   ///< text on surfaces of `colour` and `strong`; readable there
    QColor glow;   ///< the light of the acid

    static Accent of(const Skin& skin, const QColor& ground);
};

} // namespace vexmoor
