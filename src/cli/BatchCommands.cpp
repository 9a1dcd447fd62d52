#include "Commands.h"

#include "cli/Desktop.h"
#include "cli/ExitStatus.h"
#include "cli/Report.h"
#include "cli/Session.h"

#include <algorithm>

namespace vexmoor {

namespace {

int complainOfStart(const Error& error) {
    if (error.code == std::errc::interrupted)
        complain("Stopped while waiting for another command. Nothing was touched.");
    else
        complain("The history can't be opened, so nothing was touched: " +
                 printable(describe(error)));
    return kRefused;
}

/// Starts a batch with `begin`, runs it, prints its result; `what` is read last.
int runBatch(const Invocation& invocation, const char* const& what,
             const std::function<void(Session&, BatchCompletion)>& begin) {
    bool desktopRuns = false;
    auto session = Session::openForWriting(invocation.yes, desktopRuns);
    if (desktopRuns)
        return handOver(invocation);
    if (!session)
        return complainOfStart(session.error());
    BatchResult result;
    begin(**session, [&](BatchResult ended) { result = std::move(ended); });
    (*session)->run();
    if ((*session)->dialogs().lackedTerminal()) {
        complain("There is no terminal to ask on. Nothing was touched; --yes goes on without "
                 "asking.");
        return kRefused;
    }
    if (result.declined) {
        complain("Nothing was touched.");
        return kRefused;
    }
    return reportBatch(result, what, invocation.json);
}

/// The items that the arguments name; what is not found goes to `missing`.
std::vector<Sacrifice> named(Session& session, const std::vector<std::string>& arguments,
                             std::vector<Failure>& missing) {
    std::vector<Sacrifice> items;
    for (const auto& argument : arguments) {
        if (auto item = session.binnedItems().find(argument)) {
            if (std::ranges::count(items, item->id, &Sacrifice::id) == 0)
                items.push_back(*std::move(item));
        } else {
            missing.push_back(
                {displayText(argument), disposalError(DisposalError::goneFromBin, argument)});
        }
    }
    return items;
}

BatchCompletion withMissing(BatchCompletion completion, const std::vector<Failure>& missing) {
    return [completion = std::move(completion), missing](BatchResult result) {
        result.failures.insert(result.failures.begin(), missing.begin(), missing.end());
        completion(std::move(result));
    };
}

} // namespace

int runFeed(const Invocation& invocation) {
    const char* what = nullptr;
    return runBatch(invocation, what, [&](Session& session, BatchCompletion completion) {
        const auto mode =
            disposeModeFromRawValue(invocation.mode).value_or(session.settings().mode.get());
        what = mode == DisposeMode::dissolve ? "Dissolved" : "To the Bin";
        const std::vector<Path> items(invocation.items.begin(), invocation.items.end());
        auto options = session.options();
        options.mode = mode;
        session.intake().consume(items, false, std::move(completion), options);
    });
}

int runPutBack(const Invocation& invocation) {
    bool foundNone = false;
    const int status =
        runBatch(invocation, "Put back", [&](Session& session, BatchCompletion completion) {
            std::vector<Failure> missing;
            auto items = !invocation.items.empty() ? named(session, invocation.items, missing)
                         : invocation.last > 0     ? session.binnedItems().newest(invocation.last)
                                                   : session.binnedItems().lastBatch();
            foundNone = items.empty() && missing.empty();
            session.intake().restore(items, withMissing(std::move(completion), missing),
                                     session.options());
        });
    if (foundNone && status == kAllDone) {
        complain("There is nothing to put back.");
        return kRefused;
    }
    return status;
}

int runDelete(const Invocation& invocation) {
    return runBatch(invocation, "Deleted from the Bin",
                    [&](Session& session, BatchCompletion completion) {
                        std::vector<Failure> missing;
                        const auto items = named(session, invocation.items, missing);
                        session.intake().deleteImmediately(
                            items, withMissing(std::move(completion), missing), session.options());
                    });
}

} // namespace vexmoor
