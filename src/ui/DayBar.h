#pragma once

#include <QColor>
#include <QLabel>

namespace vexmoor {

class Transition;

/// One day of the week chart: a bar that grows to its height, and the text that describes it.
class DayBar : public QLabel {
    Q_OBJECT

  public:
    /// Points around the bar for the ring of the described day.
    static constexpr int kRingRoom = 4;

    struct Colours {
        QColor top;
        QColor bottom;
        QColor empty; ///< of a day on which nothing was fed
        QColor ring;
        bool operator==(const Colours&) const = default;
    };

    explicit DayBar(QWidget* parent);

    /// `share` of the full height, from 0 (an empty day) to 1. If it `grows` and is visible, the
    /// bar moves there.
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
    Transition* m_shown; ///< the share of the full height that the bar has
};

} // namespace vexmoor
