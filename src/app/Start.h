#pragma once

#include "app/ApplicationService.h"
#include "app/LaunchOptions.h"
#include "app/Stores.h"

#include <QCoreApplication>

#include <functional>
#include <memory>
#include <optional>

namespace vexmoor {

/// The first step of the program: passes the command line to a running instance, or opens the
/// stores.
class Start {
    Q_DECLARE_TR_FUNCTIONS(Start)

  public:
    enum class Outcome {
        running,   ///< this process has opened the stores
        forwarded, ///< a running instance has accepted the requests
        refused,   ///< the user has been shown why
    };

    Start(ApplicationService& service, const LaunchOptions& options);

    /// Runs the event loop while it waits for a command or for an earlier instance that is
    /// quitting.
    Outcome begin();

    /// Valid only after `running`.
    std::unique_ptr<Stores> takeStores() { return std::move(m_stores); }

  private:
    using Forwarding = ApplicationService::Forwarding;

    std::optional<Outcome> claimOrForward();
    Forwarding forward();
    Result<std::optional<WriterLock>> waitForLock(const Path& file);
    void waitUntil(const QString& message, const QString& informative,
                   const std::function<bool()>& isOver);
    [[nodiscard]] Outcome refuseForUser() const;

    ApplicationService& m_service;
    const LaunchOptions& m_options;
    std::unique_ptr<Stores> m_stores;
    bool m_isCancelled = false;
};

} // namespace vexmoor
