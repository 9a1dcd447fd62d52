#pragma once

#include <QVariantAnimation>

class QWidget;

namespace vexmoor {

/// A short motion of a widget between two of its states, which repaints the widget at every step.
/// A widget that cannot be seen changes at once, as all do where less motion is wanted. Owned by
/// the widget.
class Transition : public QVariantAnimation {
    Q_OBJECT

  public:
    Transition(QWidget& widget, int milliseconds);

    /// Where it is, from 0 to 1: what was given last, except on the way there.
    [[nodiscard]] double at() const { return m_at; }

    void setAt(double at);
    void moveTo(double at);

  private:
    QWidget& m_widget;
    double m_at = 0;
};

} // namespace vexmoor
