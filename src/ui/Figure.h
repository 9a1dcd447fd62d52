#pragma once

#include <QLabel>

namespace vexmoor {

/// A value with a caption beside it. Screen readers read both as one text. A value that is too wide
/// is drawn smaller.
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
