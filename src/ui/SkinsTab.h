#pragma once

#include "ScrollColumn.h"

#include "base/Published.h"
#include "skins/Skin.h"

#include <vector>

namespace vexmoor {

class Progression;
class SkinCardView;
class RovingFocus;

/// The skin chooser. Follows the progression while visible: newly unlocked skins are animated when
/// the tab is shown. Main thread.
class SkinsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The progression must outlive it.
    explicit SkinsTab(Progression& progression, QWidget* parent = nullptr);

    /// Sets the skin whose accent is used. The progression decides which card is selected.
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
