#pragma once

#include <QLabel>

namespace vexmoor {

/// A value with its caption beside it; a screen reader reads both as one text. A value too wide for
/// its place is written smaller.
class Figure : public QLabel {
    Q_OBJECT

  public:
    explicit Figure(QWidget* parent = nullptr);

    void setFigure(const QString& value, const QString& caption);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont valueFont() const;
    [[nodiscard]] QFont captionFont() const;

    QString m_value;
    QString m_caption;
};

} // namespace vexmoor
