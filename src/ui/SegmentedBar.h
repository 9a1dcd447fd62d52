#pragma once

#include "skins/Skin.h"

#include <QTabBar>

namespace vexmoor {

class FocusRing;

/// A tab bar drawn as a row of segments that share its width. Arrow keys select.
class SegmentedBar : public QTabBar {
    Q_OBJECT

  public:
    explicit SegmentedBar(QWidget* parent = nullptr);

    void setSkin(const Skin& skin);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int) const override { return {1, sizeHint().height()}; }
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QFont fontOf(int index) const;
    [[nodiscard]] int textWidth(int index) const;
    void paintSegment(QPainter& painter, int index) const;

    Skin m_skin;
    FocusRing* m_focus;
};

} // namespace vexmoor
