#pragma once

#include "Accent.h"
#include "Paragraph.h"

#include <QWidget>

namespace vexmoor {

class AccentButton;

/// An amber card that describes a problem, with a button that fixes it, if there is one.
class Notice : public QWidget {
    Q_OBJECT

  public:
    Notice(const QString& text, const QString& button, QWidget* parent = nullptr);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override { return {320, heightForWidth(320)}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {160, 40}; }

  signals:
    void buttonPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QColor surface() const;
    [[nodiscard]] QColor textColour() const;
    [[nodiscard]] Paragraph paragraph() const;
    [[nodiscard]] int textWidth(int width) const;
    void recolour();
    void place();

    QString m_text;
    AccentButton* m_button = nullptr;
};

} // namespace vexmoor
