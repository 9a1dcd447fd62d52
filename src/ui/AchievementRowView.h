#pragma once

#include "Accent.h"
#include "AchievementRow.h"
#include "Paragraph.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace vexmoor {

class FocusRing;

/// Shows an achievement: icon, texts and a thin progress bar. Screen readers read its title, state
/// and progress.
class AchievementRowView : public QWidget {
    Q_OBJECT

  public:
    /// The margin around the texts, in which the focus ring is drawn.
    static constexpr int kInset = 8;

    explicit AchievementRowView(AchievementRow row, QWidget* parent = nullptr);

    void setRow(const AchievementRow& row);
    void setAccent(const Accent& accent);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QColor faded(const QColor& colour) const;
    [[nodiscard]] Paragraph title() const;
    [[nodiscard]] Paragraph amount() const;
    [[nodiscard]] int amountWidth() const;
    [[nodiscard]] std::vector<Paragraph> lines() const;
    [[nodiscard]] int titleHeight(int textWidth) const;
    void paintIcon(QPainter& painter, const QRect& square);
    void paintBar(QPainter& painter, const QRect& bar) const;
    void speak();

    AchievementRow m_row;
    Accent m_accent;
    FocusRing* m_ring;
    QImage m_icon; ///< null until first painted
};

} // namespace vexmoor
