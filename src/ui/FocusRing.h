#pragma once

#include <QObject>
#include <QPainter>

class QWidget;

namespace vexmoor {

/// Whether a widget is to show that it has the focus: when the keyboard brought it there or a key
/// is pressed, not after a click. Owned by the widget, which paints it.
class FocusRing : public QObject {
    Q_OBJECT

  public:
    /// Points that the ring and the gap to what it surrounds take on each side.
    static constexpr int kRoom = 4;

    explicit FocusRing(QWidget& widget);

    [[nodiscard]] bool isShown() const;

    /// Around the widget's whole rectangle, if it is to be shown.
    void paint(QPainter& painter, const QColor& colour, double corner) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& m_widget;
    bool m_byKeyboard = false; ///< kept while another window is active
};

} // namespace vexmoor
