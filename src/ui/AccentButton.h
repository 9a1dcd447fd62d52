#pragma once

#include "Accent.h"

#include <QPushButton>

namespace vexmoor {

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
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] QFont textFontHere() const;
    [[nodiscard]] int padding() const;
    void paintSurface(QPainter& painter, const QRect& surface) const;
    [[nodiscard]] QColor textColour() const;

    Kind m_kind;
    Accent m_accent;
    bool m_ringed = false;
};

} // namespace vexmoor
