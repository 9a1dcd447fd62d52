#pragma once

#include "ScrollColumn.h"

#include "base/Published.h"
#include "skins/Skin.h"

#include <vector>

class QLabel;

namespace vexmoor {

class AchievementRowView;
class Progression;

/// Lists all achievements and their progress. Follows the progression while visible. Arrow keys
/// move between rows. Main thread.
class AchievementsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The progression must outlive it.
    explicit AchievementsTab(Progression& progression, QWidget* parent = nullptr);

    /// Sets the skin whose accent is used.
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
