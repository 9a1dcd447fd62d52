#pragma once

#include "ScrollColumn.h"

#include "base/Published.h"
#include "skins/Skin.h"

#include <vector>

class QLabel;

namespace vexmoor {

class AchievementRowView;
class Progression;

/// What can be earned, what is, and how far the rest is. Follows the progression while it can be
/// seen. Arrow keys move between the rows. Main thread.
class AchievementsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The progression outlives it.
    explicit AchievementsTab(Progression& progression, QWidget* parent = nullptr);

    /// For its accent.
    void setSkin(const Skin& skin);

  protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void refresh();
    void recolour();

    const Progression& m_progression;
    Skin m_skin;
    QLabel* m_heading;
    std::vector<AchievementRowView*> m_rows;
    Subscription m_subscription;
};

} // namespace vexmoor
