#pragma once

#include "dock/FrameTimer.h"
#include "skins/Skin.h"

#include <QDialog>

namespace vexmoor {

/// The progress dialog of an update check, with a simmering cauldron and a cancel button. Closing
/// it rejects the dialog. Main thread.
class UpdatePanel : public QDialog {
    Q_OBJECT

  public:
    explicit UpdatePanel(const Skin& skin,
                         const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vexmoor
