#pragma once

#include "Accent.h"
#include "CauldronView.h"
#include "StatsText.h"

#include <QWidget>

class QLabel;

namespace vexmoor {

class AccentButton;
class DissolveBadge;
class Figure;

/// The totals as a poster: the pot in the glow of its acid, the figures under it, and the button
/// that tries the flames. The pot is as large as its room has whole pixels for. Main thread.
class StatsPoster : public QWidget {
    Q_OBJECT

  public:
    explicit StatsPoster(const MakeFrameTimer& makeTimer, QWidget* parent = nullptr);

    void setText(const StatsText& text);
    void setSkin(const Skin& skin);
    void setDissolving(bool dissolving);

    [[nodiscard]] QSize sizeHint() const override { return {360, 760}; }
    [[nodiscard]] QSize minimumSizeHint() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void testFlamesRequested();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void layOut();
    void placePot();
    void recolour();

    Skin m_skin;
    QWidget* m_stage; ///< the room for the pot
    CauldronView* m_pot;
    DissolveBadge* m_badge;
    Figure* m_count;
    Figure* m_bytes;
    Figure* m_streak;
    QLabel* m_today;
    QLabel* m_achievements;
    AccentButton* m_test;
};

} // namespace vexmoor
