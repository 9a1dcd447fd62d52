#pragma once

#include <QVariantAnimation>

#include <functional>

namespace vexmoor {

/// A short transition from 0 to 1, fast at first. Under reduced motion it is at its end at once.
class ShortMotion : public QVariantAnimation {
    Q_OBJECT

  public:
    /// `step` is called with each value, 1 last.
    ShortMotion(std::function<void(double)> step, QObject* parent);

    /// From 0, also while it runs.
    void begin();

    /// To the end at once.
    void finish();

    [[nodiscard]] double progress() const { return m_progress; }

  private:
    void advance(double progress);

    std::function<void(double)> m_step;
    double m_progress = 1;
};

} // namespace vexmoor
