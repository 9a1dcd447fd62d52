#pragma once

#include "base/SerialQueue.h"
#include "dock/FrameTimer.h"
#include "ui/OnboardingView.h"

#include <QObject>

#include <memory>
#include <optional>

namespace vexmoor {

class AccessibilityBus;
class Alerts;
class FileManagerKey;
class Progression;
class Settings;

/// The walkthrough of the first start, and of every time that the user asks for it. Main thread.
class Walkthrough : public QObject {
    Q_OBJECT

  public:
    static constexpr const char* kFinishedKey = "onboarded";

    /// What it works with; everything outlives it.
    struct Parts {
        UserDefaults& defaults;
        Settings& settings;
        Progression& progression;
        FileManagerKey& key;
        const AccessibilityBus& accessibility;
        Alerts& alerts;
        Executor& main;
        MakeFrameTimer makeTimer;
    };

    explicit Walkthrough(Parts parts);
    ~Walkthrough() override;

    /// Whether it comes before the program's main window: it is open, or it was never finished and
    /// this run has not shown it yet.
    [[nodiscard]] bool comesFirst() const;

    /// Brings it to the front, from the welcome on if it was closed. \return the window
    QWidget& show();

  signals:
    void finished();
    void settingsRequested();

  private:
    [[nodiscard]] Onboarding::Ports ports();
    [[nodiscard]] Onboarding::Facts facts() const;
    void openAccessibilitySettings();
    void finish();
    void dropWindow();

    Parts m_parts;
    bool m_wasShown = false;
    std::optional<SerialQueue> m_background; ///< made when the folders are first looked at
    std::unique_ptr<OnboardingView> m_view;
    Subscription m_skin;
};

} // namespace vexmoor
