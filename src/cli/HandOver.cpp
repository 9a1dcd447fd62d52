#include "HandOver.h"

#include "base/JsonReader.h"
#include "base/Text.h"
#include "cli/ExitStatus.h"
#include "cli/RunningDesktop.h"
#include "cli/Session.h"
#include "intake/Texts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <set>

namespace vexmoor {

namespace {

using Command = Invocation::Command;
using Start = RunningDesktop::Start;

/// Asks for confirmation if the batch needs it. Only confirmed items are handed over.
std::optional<Refusal> askFor(Invocation& invocation, const Question& question) {
    TerminalDialogs dialogs(invocation.yes);
    invocation.yes = dialogs.ask(question).confirmed;
    if (invocation.yes)
        return std::nullopt;
    return dialogs.lackedTerminal()
               ? noTerminal()
               : Refusal{kRefused, "declined", [] { return text("Nothing was touched."); }};
}

std::size_t countOf(const std::vector<std::string>& items) {
    std::set<Path> distinct;
    for (const auto& item : items)
        if (!endsInDots(item))
            distinct.insert(standardized(item));
    return distinct.size();
}

/// Sets the mode explicitly: the setting may change before the desktop application runs the
/// command.
std::optional<Refusal> settleFeed(Invocation& invocation, Session& session) {
    const auto mode =
        disposeModeFromRawValue(invocation.mode).value_or(session.settings().mode.get());
    invocation.mode = toRawValue(mode);
    const auto count = countOf(invocation.items);
    if (mode != DisposeMode::dissolve || count == 0 || !session.settings().confirmDissolve.get())
        return std::nullopt;
    if (invocation.seen.empty())
        std::ranges::transform(invocation.items, std::back_inserter(invocation.seen),
                               [](const auto& item) { return identityAt(standardized(item)); });
    const std::vector<StoredPath> named(invocation.items.begin(), invocation.items.end());
    return askFor(invocation, dissolveQuestion(count, firstNames(named)));
}

/// Replaces the items' names by their ids: D-Bus texts cannot carry arbitrary bytes, names may
/// match other items when the desktop application runs the command, and names without a match may
/// gain one that the user has not confirmed.
std::vector<Sacrifice> nameById(Invocation& invocation, const Session& session) {
    auto [items, missing] = session.binnedItems().named(invocation.items);
    std::ranges::move(missing, std::back_inserter(invocation.missing));
    invocation.items.clear();
    for (const auto& item : items)
        invocation.items.push_back(item.id.toString());
    return items;
}

std::optional<Refusal> settleDelete(Invocation& invocation, const Session& session) {
    const auto items = nameById(invocation, session);
    return items.empty() ? std::nullopt : askFor(invocation, deleteQuestion(items));
}

/// Adds the names that matched nothing to the reported failures.
Outcome withMissing(Outcome outcome, const Invocation& invocation) {
    if (auto* const report = std::get_if<BatchReport>(&outcome))
        report->failures.insert(report->failures.end(), invocation.missing.begin(),
                                invocation.missing.end());
    return outcome;
}

std::optional<Refusal> settle(Invocation& invocation) {
    const bool isPutBack = invocation.command == Command::putBack && !invocation.items.empty();
    if (invocation.command != Command::feed && invocation.command != Command::erase && !isPutBack)
        return std::nullopt;
    const auto session = Session::openForReading();
    if (!session)
        return Refusal{kRefused, "historyNotRead", session.error(), [](const std::string& why) {
                           return text("The history can't be read, so nothing was touched: %1",
                                       {why});
                       }};
    if (isPutBack) {
        nameById(invocation, **session);
        return std::nullopt;
    }
    return invocation.command == Command::feed ? settleFeed(invocation, **session)
                                               : settleDelete(invocation, **session);
}

/// Makes the paths absolute: the desktop application has another working directory. Leaves the
/// names otherwise unchanged.
Result<std::vector<std::string>> absolute(std::vector<std::string> items) {
    std::string folder;
    for (auto& item : items) {
        if (item.starts_with('/'))
            continue;
        if (folder.empty()) {
            std::error_code code;
            folder = std::filesystem::current_path(code).native();
            if (code)
                return Error{code, marked("find the current folder"), {}};
        }
        item.insert(0, folder + "/");
    }
    return items;
}

std::vector<std::string> asTexts(const std::vector<std::string>& items) {
    std::vector<std::string> texts;
    std::ranges::transform(items, std::back_inserter(texts),
                           [](const auto& item) { return displayText(item); });
    return texts;
}

std::vector<std::uint64_t> numbersOf(const std::vector<FileIdentity>& seen) {
    std::vector<std::uint64_t> numbers;
    for (const auto& identity : seen) {
        numbers.push_back(identity.device);
        numbers.push_back(identity.inode);
    }
    return numbers;
}

std::optional<RunningDesktop::Answer> tell(const RunningDesktop& desktop,
                                           const Invocation& invocation, bool asks, Start start) {
    const auto& items = invocation.items;
    switch (invocation.command) {
    case Command::feed:
        return desktop.call(
            "Feed",
            [&](BusCall& call) {
                call.addByteStrings(items);
                call.add(invocation.mode);
                call.add(asks);
                call.add(numbersOf(invocation.seen));
            },
            start);
    case Command::putBack:
        return desktop.call("PutBack", [&](BusCall& call) {
            call.add(asTexts(items));
            call.add(std::uint64_t{invocation.last});
        });
    case Command::erase:
        return desktop.call("Delete", [&](BusCall& call) {
            call.add(asTexts(items));
            call.add(asks);
        });
    default:
        return desktop.call("Set", [&](BusCall& call) {
            call.add(invocation.name);
            call.add(displayText(invocation.value));
        });
    }
}

Outcome outcomeOf(RunningDesktop::Answer answer, const Invocation& invocation) {
    if (const auto* const refusal = std::get_if<Refusal>(&answer))
        return *refusal;
    if (invocation.command == Command::settings)
        return BatchReport();
    const auto document = std::get<BusReply>(answer).text();
    auto report = document ? batchReportFromJson(parsedJson(*document)) : std::nullopt;
    if (!report)
        return Refusal{kSomeFailed, "answerNotUnderstood", [] {
                           return text("The desktop application's answer can't be understood. "
                                       "What was done is in the history: vexmoor history.");
                       }};
    return *std::move(report);
}

std::optional<Outcome> handOverSettled(Invocation invocation, bool asks, Start start) {
    if (invocation.command == Command::feed) {
        auto items = absolute(std::move(invocation.items));
        if (!items)
            return Refusal{kRefused, "noCurrentFolder", items.error(), [](const std::string& why) {
                               return text(
                                   "The current folder can't be found, so nothing was touched: %1",
                                   {why});
                           }};
        invocation.items = *std::move(items);
    }
    const RunningDesktop desktop(UserDirectories::ofProcess().ownData() / WriterLock::kFileName,
                                 RunningDesktop::kPatience, !invocation.quiet);
    auto answer = tell(desktop, invocation, asks, start);
    if (!answer)
        return std::nullopt;
    return outcomeOf(*std::move(answer), invocation);
}

bool hasDisplay() {
    return std::ranges::any_of(std::initializer_list<const char*>{"DISPLAY", "WAYLAND_DISPLAY"},
                               [](const char* name) {
                                   const char* const value = std::getenv(name);
                                   return value != nullptr && *value != '\0';
                               });
}

} // namespace

Refusal noTerminal() {
    return {kRefused, "noTerminal", [] {
                return text("There is no terminal to ask on. Nothing was touched; use --yes to "
                            "skip the question.");
            }};
}

std::optional<Outcome> handOver(Invocation& invocation) {
    if (invocation.fromMenu)
        return handOverSettled(invocation, true, Start::never);
    if (auto refusal = settle(invocation))
        return *std::move(refusal);
    if (invocation.items.empty() && !invocation.missing.empty())
        return withMissing(BatchReport(), invocation);
    auto outcome = handOverSettled(invocation, false, Start::never);
    return outcome ? std::optional(withMissing(*std::move(outcome), invocation)) : std::nullopt;
}

std::optional<Outcome> handOverFromMenu(const Invocation& invocation) {
    return hasDisplay() ? handOverSettled(invocation, true, Start::ifNeeded) : std::nullopt;
}

} // namespace vexmoor
