#pragma once

#include "app/ApplicationService.h"
#include "app/LaunchOptions.h"
#include "app/Stores.h"

#include <QCoreApplication>

#include <functional>
#include <memory>
#include <optional>

namespace vexmoor {

/// What happens before the program is the one that runs: an earlier start gets the orders, or the
/// stores are opened.
class Start {
    Q_DECLARE_TR_FUNCTIONS(Start)

  public:
    enum class Outcome {
        running,   ///< the stores are ours
        forwarded, ///< an earlier start carries it out
        refused,   ///< the user was told why
    };

    Start(ApplicationService& service, const LaunchOptions& options);

    /// May run the event loop: while a command of the command line works, or an earlier start ends,
    /// that is waited for.
    Outcome begin();

    /// After `running`.
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
