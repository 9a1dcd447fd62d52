#pragma once

#include <QLabel>

namespace vexmoor {

/// A value with its caption under it, centred; a screen reader reads both as one text. A value too
/// wide for its place is written smaller.
class Figure : public QLabel {
    Q_OBJECT

  public:
    /// `size` is that of the value, for textFont().
    explicit Figure(double size, QWidget* parent = nullptr);

    void setFigure(const QString& value, const QString& caption);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont valueFont() const;
    [[nodiscard]] QFont captionFont() const;

    double m_size;
    QString m_value;
    QString m_caption;
};

} // namespace vexmoor
