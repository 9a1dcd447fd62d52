#pragma once

#include "ScrollColumn.h"

#include "base/Published.h"
#include "skins/Skin.h"

#include <vector>

namespace vexmoor {

class Progression;
class SkinCardView;
class RovingFocus;

/// The chooser of the cauldron's look. Follows the progression while it can be seen: a skin that
/// was unlocked in the meantime wakes up when the tab is shown. Main thread.
class SkinsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The progression outlives it.
    explicit SkinsTab(Progression& progression, QWidget* parent = nullptr);

    /// For its accent; the chosen skin is the progression's.
    void setSkin(const Skin& skin);

  protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void refresh();
    void recolour();

    Progression& m_progression;
    Skin m_skin;
    std::vector<SkinCardView*> m_cards;
    RovingFocus* m_focus = nullptr;
    Subscription m_subscription;
};

} // namespace vexmoor
