#include "Commands.h"

#include "base/Path.h"
#include "cli/ExitStatus.h"
#include "cli/HandOver.h"
#include "cli/MenuDialogs.h"
#include "cli/MenuSelection.h"
#include "cli/Report.h"
#include "cli/Session.h"

namespace vexmoor {

namespace {

using Command = Invocation::Command;

Refusal refusalOfStart(const Error& error) {
    if (error.code == std::errc::interrupted)
        return {kRefused, "interrupted", [] {
                    return text("Stopped while waiting for another command. Nothing was touched.");
                }};
    return {kRefused, "historyNotOpened", error, [](const std::string& why) {
                return text("The history can't be opened, so nothing was touched: %1", {why});
            }};
}

void begin(Session& session, const Invocation& invocation, BatchCompletion completion,
           BatchOptions options) {
    if (invocation.command == Command::feed) {
        options.mode = disposeModeFromRawValue(invocation.mode);
        options.seen = invocation.seen;
        const std::vector<Path> items(invocation.items.begin(), invocation.items.end());
        session.intake().consume(items, false, std::move(completion), options);
        return;
    }
    const auto binned = session.binnedItems();
    const bool isPutBack = invocation.command == Command::putBack;
    auto [items, missing] = isPutBack ? binned.toPutBack(invocation.items, invocation.last)
                                      : binned.named(invocation.items);
    options.missing = std::move(missing);
    options.missing.insert(options.missing.end(), invocation.missing.begin(),
                           invocation.missing.end());
    if (isPutBack)
        session.intake().restore(std::move(items), std::move(completion), options);
    else
        session.intake().deleteImmediately(std::move(items), std::move(completion), options);
}

Refusal declined() {
    return {kRefused, "declined", [] { return text("Nothing was touched."); }};
}

/// Asks for each item and removes those that the user declines. Keeps missing items without asking;
/// their failure is reported.
std::optional<Refusal> askForEach(Invocation& invocation) {
    TerminalDialogs dialogs(invocation.yes);
    std::vector<std::string> confirmed;
    for (const auto& item : invocation.items) {
        const auto identity = identityAt(standardized(item));
        if (identity != FileIdentity() &&
            !dialogs.confirms(text("Feed %1", {printable(displayText(item))})))
            continue;
        confirmed.push_back(item);
        invocation.seen.push_back(identity);
    }
    invocation.items = std::move(confirmed);
    return dialogs.lackedTerminal()   ? std::optional(noTerminal())
           : invocation.items.empty() ? std::optional(declined())
                                      : std::nullopt;
}

/// Runs the batch in this process, which holds the writer lock.
Outcome carryOutHere(Session& session, const Invocation& invocation, MenuDialogs& menu) {
    BatchResult result;
    auto options = session.options();
    if (invocation.fromMenu)
        options.dialogs = &menu;
    begin(
        session, invocation, [&](BatchResult ended) { result = std::move(ended); }, options);
    session.run();
    if (session.dialogs().lackedTerminal())
        return noTerminal();
    if (menu.lackedWindow())
        return Refusal{kRefused, "noDesktop", [] {
                           return text("Dissolving needs a yes, and the desktop application is not "
                                       "there to ask for it. Nothing was touched.");
                       }};
    return BatchReport::of(std::move(result));
}

Outcome carryOut(Invocation invocation, MenuDialogs& menu) {
    if (invocation.asksEach)
        if (auto refusal = askForEach(invocation))
            return *std::move(refusal);
    if (invocation.fromMenu)
        if (auto outcome = handOverFromMenu(invocation))
            return *std::move(outcome);
    for (;;) {
        bool desktopRuns = false;
        const auto session = Session::openForWriting(
            {.assumesYes = invocation.yes, .isQuiet = invocation.quiet}, desktopRuns);
        if (session)
            return carryOutHere(**session, invocation, menu);
        if (!desktopRuns)
            return refusalOfStart(session.error());
        if (auto outcome = handOver(invocation))
            return *std::move(outcome);
    }
}

Refusal unknownSelection() {
    return {kRefused, "selectionUnknown", [] {
                return text("The file manager does not answer whether this folder is selected or "
                            "only on view. Nothing was touched.");
            }};
}

Refusal nothingToPutBack() {
    return {kRefused, "nothingToPutBack", [] { return text("There is nothing to put back."); }};
}

Deed deedOf(Command command, const BatchReport& report) {
    if (command == Command::putBack)
        return Deed::putBack;
    if (command == Command::erase)
        return Deed::deleted;
    const bool dissolved =
        !report.done.empty() && report.done.front().mode == DisposeMode::dissolve;
    return dissolved ? Deed::dissolved : Deed::binned;
}

int refuse(const Refusal& refusal, bool asJson) {
    complain(printable(refusal.sentence));
    if (asJson)
        printRefusal(refusal);
    return refusal.status;
}

/// Removes the failures of items that do not exist, as -f wants.
void forgiveMissing(BatchReport& report) {
    std::erase_if(report.failures, [](const Failure& failure) {
        const auto& code = failure.error.code;
        return (code == std::errc::no_such_file_or_directory ||
                code == std::errc::not_a_directory) &&
               failure.path && identityAt(*failure.path) == FileIdentity();
    });
}

/// True for `feed -f` without a path, for example after a pattern that matched nothing.
bool isForcedNothing(const Invocation& invocation) {
    return invocation.force && invocation.items.empty();
}

int tell(BatchReport report, const Invocation& invocation) {
    if (invocation.force)
        forgiveMissing(report);
    if (report.declined)
        return refuse(declined(), invocation.json);
    if (invocation.command == Command::putBack && report.isEmpty())
        return refuse(nothingToPutBack(), invocation.json);
    return reportBatch(report, deedOf(invocation.command, report), invocation);
}

} // namespace

int runBatch(const Invocation& invocation) {
    const auto selection =
        invocation.fromMenu ? menuSelection(invocation.items) : MenuSelection::items;
    if (selection == MenuSelection::nothing || isForcedNothing(invocation))
        return tell(BatchReport(), invocation);
    MenuDialogs menu;
    auto outcome = selection == MenuSelection::unknown ? Outcome(unknownSelection())
                                                       : carryOut(invocation, menu);
    const auto* const refusal = std::get_if<Refusal>(&outcome);
    if (refusal != nullptr)
        menu.report({refusal->status == kSomeFailed ? text("The cauldron did not answer")
                                                    : text("Nothing was fed"),
                     refusal->sentence,
                     {}});
    const int status = refusal != nullptr
                           ? refuse(*refusal, invocation.json)
                           : tell(std::get<BatchReport>(std::move(outcome)), invocation);
    if (invocation.fromMenu)
        menu.show();
    return status;
}

} // namespace vexmoor
