#pragma once

#include "FocusRing.h"
#include "Paragraph.h"
#include "Switch.h"

#include <QWidget>

#include <vector>

namespace vexmoor {

/// A setting with its switch: the label, a caption under it, a line below. A click anywhere on the
/// row is one on the switch. A setting that cannot work here has no switch: its caption says why.
class SettingRow : public QWidget {
    Q_OBJECT

  public:
    /// How far the row reaches beyond its texts, for the ring around the switch.
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
    /// By the user.
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
