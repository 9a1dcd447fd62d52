#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace vexmoor {

/// A scrollable page with one centred column of limited width and no frame. Tab moves the focus to
/// its children and scrolls them into view.
class ScrollColumn : public QScrollArea {
    Q_OBJECT

  public:
    /// The horizontal margin of the column in points.
    static constexpr int kMargin = 20;

    /// `widest` is the column's maximum width in points; `inset` is how far its widgets extend into
    /// the margin for their focus rings.
    explicit ScrollColumn(int widest, int inset = 0, QWidget* parent = nullptr);

    QVBoxLayout& column() { return *m_column; }

    [[nodiscard]] QSize sizeHint() const override { return {360, 400}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {200, 120}; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QVBoxLayout* m_column;
};

} // namespace vexmoor
