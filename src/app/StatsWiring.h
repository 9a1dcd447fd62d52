#pragma once

#include "base/Date.h"
#include "dock/FrameTimer.h"
#include "intake/BinnedItems.h"
#include "thumbnails/BinnedPictures.h"
#include "ui/StatsWindow.h"

#include <QObject>

#include <memory>

namespace vexmoor {

class Accessibility;
class Alerts;
class FileManagerKey;
class Intake;

/// Creates the stats window and connects it with the program's parts. Must outlive the window. Main
/// thread.
class StatsWiring : public QObject {
    Q_OBJECT

  public:
    /// All must outlive it.
    struct Parts {
        Ledger& ledger;
        Settings& settings;
        Progression& progression;
        BinnedItems binnedItems;
        Intake& intake;
        FileManagerKey& key;
        const Accessibility& accessibility;
        Alerts& alerts;
        MakeFrameTimer makeTimer;
    };

    explicit StatsWiring(Parts parts) : m_parts(std::move(parts)) {}

    std::unique_ptr<StatsWindow> makeWindow();

  private:
    [[nodiscard]] Permissions permissions() const;
    void connectSettings(const SettingsTab& tab);

    Parts m_parts;
    BinnedPictures m_pictures;
};

} // namespace vexmoor
