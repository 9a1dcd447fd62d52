#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace vexmoor {

/// A page that scrolls: one column of limited width in the middle, without a frame. The Tab key
/// goes to what is in it, and what has the focus is scrolled into sight.
class ScrollColumn : public QScrollArea {
    Q_OBJECT

  public:
    /// Points at the sides of the column.
    static constexpr int kMargin = 20;

    /// `widest` is the column's, in points; `inset` how far its widgets reach into the margin, for
    /// the rings around them.
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
