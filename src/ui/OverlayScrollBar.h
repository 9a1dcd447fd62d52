#pragma once

#include <QScrollBar>

#include <optional>

class QAbstractScrollArea;

namespace vexmoor {

/// A thin scroll bar that lies over the contents of an area and takes no width from them. It stands
/// in for the area's own vertical one and follows it. Owned by the area.
class OverlayScrollBar : public QScrollBar {
    Q_OBJECT

  public:
    explicit OverlayScrollBar(QAbstractScrollArea& area);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void follow();
    void place();
    [[nodiscard]] QRect thumb() const;

    QAbstractScrollArea& m_area;
    std::optional<int> m_held; ///< where in the thumb it was taken, in points
};

} // namespace vexmoor
