#pragma once

#include "Accent.h"

#include <QCheckBox>

namespace vexmoor {

class FocusRing;
class Transition;

/// A check box drawn as a sliding switch. Screen readers see a check box; the owner sets its name.
class Switch : public QCheckBox {
    Q_OBJECT

  public:
    explicit Switch(QWidget* parent = nullptr);

    void setAccent(const Accent& accent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QColor track() const;

    Accent m_accent;
    FocusRing* m_ring;
    Transition* m_knob; ///< 0: off, 1: on
};

} // namespace vexmoor
