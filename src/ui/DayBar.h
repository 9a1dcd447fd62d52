#pragma once

#include <QColor>
#include <QLabel>

namespace vexmoor {

class Transition;

/// A bar of the week chart with an animated height, and the text that describes its day.
class DayBar : public QLabel {
    Q_OBJECT

  public:
    /// The margin in points in which the ring of the described day is drawn.
    static constexpr int kRingRoom = 4;

    struct Colours {
        QColor top;
        QColor bottom;
        QColor empty; ///< for a day without items
        QColor ring;
        bool operator==(const Colours&) const = default;
    };

    explicit DayBar(QWidget* parent);

    /// `share` is the fraction of the full height, from 0 (an empty day) to 1. If `grows` and the
    /// bar is visible, the change is animated.
    void setDay(const QString& description, double share, bool grows);
    void setDescribed(bool isDescribed);
    void setColours(const Colours& colours);

    [[nodiscard]] double share() const { return m_share; }
    [[nodiscard]] bool isDescribed() const { return m_isDescribed; }

    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return {16, 24}; }

  signals:
    void pointed(bool isUnderPointer);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    [[nodiscard]] QRectF bar() const;

    Colours m_colours;
    double m_share = 0;
    bool m_isDescribed = false;
    Transition* m_shown; ///< the animated share
};

} // namespace vexmoor
