#pragma once

#include "AccentButton.h"

namespace vexmoor {

/// A link that shows only a flame if there is no room for its text.
class FlameButton : public AccentButton {
    Q_OBJECT

  public:
    FlameButton(const QString& text, QWidget* parent);

    void setAccent(const Accent& accent);
    void setCompact(bool isCompact);
    [[nodiscard]] QSize compactSize() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return compactSize(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor m_colour;
    bool m_isCompact = false;
};

} // namespace vexmoor
