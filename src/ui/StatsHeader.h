#pragma once

#include "CauldronView.h"
#include "StatsText.h"

#include <QWidget>

namespace vexmoor {

class DissolveBadge;
class Figure;

/// The pot in the glow of its acid, the three totals beside it, and the badge of a cauldron that
/// dissolves. Its height is the same with and without the badge. Main thread.
class StatsHeader : public QWidget {
    Q_OBJECT

  public:
    explicit StatsHeader(const MakeFrameTimer& makeTimer, QWidget* parent = nullptr);

    void setText(const StatsText& text);
    void setSkin(const Skin& skin);
    void setDissolving(bool isDissolving);

    /// Where the pot is in the header.
    [[nodiscard]] QRect pot() const;

  signals:
    /// The badge was clicked.
    void settingsRequested();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();

    QWidget* m_stage; ///< the room for the pot, of the same size at every scale
    CauldronView* m_pot;
    Figure* m_count;
    Figure* m_bytes;
    Figure* m_streak;
    DissolveBadge* m_badge;
};

} // namespace vexmoor
