#pragma once

#include "Accent.h"

#include <QPushButton>

namespace vexmoor {

class FocusRing;

/// A button of a window in the skin's colours. The keyboard's focus shows as a ring around it.
class AccentButton : public QPushButton {
    Q_OBJECT

  public:
    enum class Kind {
        primary, ///< filled with the accent: what the window is for
        plain,   ///< outlined: everything else
        link,    ///< text in the accent, without a surface
    };

    explicit AccentButton(const QString& text, QWidget* parent = nullptr,
                          Kind kind = Kind::primary);

    void setAccent(const Accent& accent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void paintFocusRing(QPainter& painter) const;

  private:
    [[nodiscard]] QFont textFontHere() const;
    [[nodiscard]] int padding() const;
    void paintSurface(QPainter& painter, const QRect& surface) const;
    [[nodiscard]] QColor textColour() const;

    Kind m_kind;
    Accent m_accent;
    FocusRing* m_ring;
};

} // namespace vexmoor
