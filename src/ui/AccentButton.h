#pragma once

#include "Accent.h"

#include <QPushButton>

namespace vexmoor {

/// The button of what a window is for, filled with the accent. Whoever comes to it by the keyboard
/// sees a ring around it.
class AccentButton : public QPushButton {
    Q_OBJECT

  public:
    explicit AccentButton(const QString& text, QWidget* parent = nullptr);

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

    Accent m_accent;
    bool m_ringed = false;
};

} // namespace vexmoor
