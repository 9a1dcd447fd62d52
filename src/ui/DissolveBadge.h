#pragma once

#include <QAbstractButton>

namespace vexmoor {

/// The badge that marks dissolve mode. Clicking it opens the settings. Its flame is drawn, so that
/// it does not depend on fonts.
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
