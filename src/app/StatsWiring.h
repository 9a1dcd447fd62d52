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

/// Makes the stats window and connects what it shows and asks for with the program's parts. Main
/// thread; must outlive the window.
class StatsWiring : public QObject {
    Q_OBJECT

  public:
    /// All outlive it.
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
    void openAccessibilitySettings();

    Parts m_parts;
    BinnedPictures m_pictures;
};

} // namespace vexmoor
