#pragma once

#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QDialog>

namespace vexmoor {

/// Shows that updates are being looked for, and offers to cancel: the cauldron simmers in the
/// meantime. Closing it rejects it. Main thread.
class UpdatePanel : public QDialog {
    Q_OBJECT

  public:
    explicit UpdatePanel(const Skin& skin,
                         const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vexmoor
