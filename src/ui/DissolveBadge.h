#pragma once

#include <QLabel>

namespace vexmoor {

/// The sign that what is fed is gone for good. Its flame is a picture of our own, whatever fonts
/// there are.
class DissolveBadge : public QLabel {
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
