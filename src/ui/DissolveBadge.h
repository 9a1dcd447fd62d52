#pragma once

#include <QAbstractButton>

namespace vexmoor {

/// The sign that what is fed is gone for good, and the button that leads to where that is changed.
/// Its flame is a picture of our own, whatever fonts there are.
class DissolveBadge : public QAbstractButton {
    Q_OBJECT

  public:
    explicit DissolveBadge(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont textFontHere() const;
};

} // namespace vexmoor
