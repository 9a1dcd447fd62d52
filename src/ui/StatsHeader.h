#pragma once

#include "CauldronView.h"
#include "StatsText.h"

#include <QWidget>

namespace vexmoor {

class DissolveBadge;
class Figure;

/// The pot with its glow, the three totals, and the dissolve badge. Its height is the same with and
/// without the badge. Main thread.
class StatsHeader : public QWidget {
    Q_OBJECT

  public:
    explicit StatsHeader(const MakeFrameTimer& makeTimer, QWidget* parent = nullptr);

    void setText(const StatsText& text);
    void setSkin(const Skin& skin);
    void setDissolving(bool isDissolving);

    /// Returns the pot's rectangle in the header.
    [[nodiscard]] QRect pot() const;

  signals:
    /// The badge was clicked.
    void settingsRequested();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();

    QWidget* m_stage; ///< the pot's area, of constant size at every scale
    CauldronView* m_pot;
    Figure* m_count;
    Figure* m_bytes;
    Figure* m_streak;
    DissolveBadge* m_badge;
};

} // namespace vexmoor
