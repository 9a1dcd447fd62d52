#pragma once

#include <QScrollBar>

#include <optional>

class QAbstractScrollArea;

namespace vexmoor {

/// A thin scroll bar drawn over an area's contents without using width. Replaces and follows the
/// area's vertical scroll bar. Owned by the area.
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
    std::optional<int> m_held; ///< where the thumb was grabbed, in points
};

} // namespace vexmoor
