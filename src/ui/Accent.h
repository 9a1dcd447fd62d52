#pragma once

#include "skins/Skin.h"

#include <QColor>

namespace vexmoor {

/// The lightness that eyes see, from 0 (black) to 1 (white), as WCAG 2 defines it. Alpha is
/// ignored.
double relativeLuminance(const QColor& colour);

/// WCAG 2's contrast of two colours, from 1 (the same) to 21 (black and white).
double contrast(const QColor& one, const QColor& other);

/// The contrast at which WCAG 2 (level AA) calls text readable.
inline constexpr double kReadable = 4.5;

/// Whether white is easier to read on it than black.
bool isDark(const QColor& ground);

/// `from` at 0, `to` at 1, in between the mixture. Opaque.
QColor mixed(const QColor& from, const QColor& to, double share);

/// One hue, dark to light.
struct Shades {
    QColor dark;
    QColor middle;
    QColor light;

    /// The middle shade, on a dark ground lightened and on a light one darkened just so far that
    /// it can be read there.
    [[nodiscard]] QColor readableOn(const QColor& ground) const;
};

/// The colours that a window takes from a skin's acid.
struct Accent {
    QColor colour; ///< text and surfaces on the ground; readable there
    QColor strong; ///< a surface of `colour` under the pointer
    QColor text;   ///< text on surfaces of `colour` and `strong`; readable there
    QColor glow;   ///< the light of the acid

    static Accent of(const Skin& skin, const QColor& ground);
};

} // namespace vexmoor
