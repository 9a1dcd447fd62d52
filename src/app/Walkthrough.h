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

/// The walkthrough, shown at the first start and from the menu. Main thread.
class Walkthrough : public QObject {
    Q_OBJECT

  public:
    static constexpr const char* kFinishedKey = "onboarded";

    /// All must outlive it.
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

    /// True if it must be shown instead of the main window: it is open, or it was never finished
    /// and has not been shown in this run.
    [[nodiscard]] bool comesFirst() const;

    /// Raises it, or opens it at its first page; returns the window.
    QWidget& show();

  signals:
    void finished();
    void settingsRequested();

  private:
    [[nodiscard]] Onboarding::Ports ports();
    [[nodiscard]] Onboarding::Facts facts() const;
    void finish();
    void dropWindow();

    Parts m_parts;
    bool m_wasShown = false;
    std::optional<SerialQueue> m_background; ///< created when the folders are first probed
    std::unique_ptr<OnboardingView> m_view;
    Subscription m_skin;
};

} // namespace vexmoor
