#pragma once

#include "FocusRing.h"
#include "Paragraph.h"
#include "Switch.h"

#include <QWidget>

#include <vector>

namespace vexmoor {

/// A setting with label, caption and switch, and a line below. Clicking the row toggles the switch.
/// A setting that is impossible here has no switch, and its caption gives the reason.
class SettingRow : public QWidget {
    Q_OBJECT

  public:
    /// The margin around the texts, in which the switch's focus ring is drawn.
    static constexpr int kInset = FocusRing::kRoom;

    explicit SettingRow(QWidget* parent = nullptr);

    void setTexts(const QString& label, const QString& caption);
    void setOn(bool isOn);
    void setPossible(bool isPossible);
    void setAccent(const Accent& accent) { m_switch->setAccent(accent); }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override { return {320, heightForWidth(320)}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {160, 44}; }

  signals:
    /// The user toggled the switch.
    void switched(bool isOn);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] std::vector<Paragraph> texts() const;
    [[nodiscard]] int textWidth(int width) const;
    void place();

    QString m_label;
    QString m_caption;
    Switch* m_switch;
};

} // namespace vexmoor
