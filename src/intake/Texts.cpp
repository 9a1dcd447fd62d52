#include "Texts.h"

#include "base/Text.h"
#include "disposal/DisposalError.h"

#include <algorithm>
#include <iterator>

namespace vexmoor {

namespace {

/// Returns a name for use in a sentence. Replaces control characters, including line feeds, by
/// visible symbols, so that a name cannot imitate other text.
std::string inSentence(const std::string& name) {
    std::string shown;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20)
            shown += {'\xe2', '\x90', static_cast<char>(0x80 + byte)}; // U+2400 + byte
        else if (byte == 0x7f)
            shown += "\xe2\x90\xa1";
        else
            shown += c;
    }
    return shown;
}

/// Returns the first lines, and the number of further ones.
std::string listed(std::size_t count, const std::vector<std::string>& lines) {
    std::string list;
    for (std::size_t i = 0; i < std::min(lines.size(), kListedFailures); ++i)
        list += (i > 0 ? "\n" : "") + lines[i];
    if (count > kListedFailures)
        list += "\n" + plural("…and %1 more.", "…and %1 more.",
                              static_cast<std::int64_t>(count - kListedFailures));
    return list;
}

FailureReport failureReport(std::string message, std::vector<Failure> failures) {
    FailureReport report;
    const auto count = failures.size();
    report.message = std::move(message);
    if (count == 1) {
        report.informative = describe(failures.front().error);
    } else {
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < std::min(count, kListedFailures); ++i)
            lines.push_back(inSentence(failures[i].name) + ": " + describe(failures[i].error));
        report.informative = listed(count, lines);
    }
    report.failures = std::move(failures);
    return report;
}

std::int64_t number(std::size_t count) {
    return static_cast<std::int64_t>(count);
}

} // namespace

std::vector<std::string> firstNames(const std::vector<StoredPath>& items) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(items.size(), kListedFailures); ++i)
        names.push_back(displayText(lastComponent(items[i])));
    return names;
}

Question dissolveQuestion(std::size_t count, const std::vector<std::string>& names) {
    std::vector<std::string> lines;
    std::ranges::transform(names, std::back_inserter(lines), inSentence);
    return {plural("Dissolve this item forever?", "Dissolve %1 items forever?", number(count)),
            text("Dissolve mode skips the Bin. There is no Put Back."),
            text("Dissolve"),
            text("Cancel"),
            text("Don't ask again"),
            names.empty() ? "" : listed(count, lines)};
}

Question deleteQuestion(const std::vector<Sacrifice>& items) {
    return {items.size() == 1
                ? text("Are you sure you want to delete “%1” immediately?",
                       {inSentence(items.front().name)})
                : plural("Are you sure you want to delete this %1 item immediately?",
                         "Are you sure you want to delete these %1 items immediately?",
                         number(items.size())),
            text("You can’t undo this action."), text("Delete"), text("Cancel"), std::nullopt};
}

FailureReport intakeFailures(std::vector<Failure> failures) {
    auto message = failures.size() == 1
                       ? text("The cauldron rejected %1", {inSentence(failures.front().name)})
                       : plural("The cauldron rejected %1 item", "The cauldron rejected %1 items",
                                number(failures.size()));
    return failureReport(std::move(message), std::move(failures));
}

FailureReport putBackFailures(std::vector<Failure> failures) {
    auto message = failures.size() == 1
                       ? text("Couldn't put back %1", {inSentence(failures.front().name)})
                       : plural("Couldn't put back %1 item", "Couldn't put back %1 items",
                                number(failures.size()));
    return failureReport(std::move(message), std::move(failures));
}

FailureReport deleteFailures(std::vector<Failure> failures) {
    auto message = failures.size() == 1
                       ? text("Couldn't delete %1", {inSentence(failures.front().name)})
                       : plural("Couldn't delete %1 item", "Couldn't delete %1 items",
                                number(failures.size()));
    return failureReport(std::move(message), std::move(failures));
}

FailureReport stoppedReport(std::size_t count) {
    return {
        text("Vexmoor stopped before it was done"),
        plural("%1 item was left as it was.", "%1 items were left as they were.", number(count)),
        {}};
}

FailureReport foreignReport(bool tookOthers) {
    return {tookOthers ? text("The cauldron did not take everything")
                       : text("The cauldron couldn't take any of that"),
            text("It takes only files and folders that are on this computer."),
            {}};
}

FailureReport withheldReport() {
    return {text("The desktop withheld what was dropped"),
            text("It did not say which files they were, so nothing was touched. Feed them from the "
                 "file manager's menu instead."),
            {}};
}

FailureReport tileLostReport(const std::string& reason) {
    return {
        text("The cauldron left the screen"),
        text("The desktop ended the connection that shows it: %1. It comes back when Vexmoor is "
             "started again.",
             {reason}),
        {}};
}

FailureReport droppedCommands(std::size_t count) {
    return {
        plural("A command was not carried out", "%1 commands were not carried out", number(count)),
        text("Too many came at a time, and the programs that sent them did not wait for an "
             "answer. Nothing of these was touched."),
        {}};
}

FailureReport furtherReports(std::size_t count, const std::vector<std::string>& lines) {
    return {
        plural("One more failure", "%1 more failures", number(count)), listed(count, lines), {}};
}

FailureReport damagedStore(const Path& aside) {
    return {text("The history was damaged"),
            text("It was set aside as %1. A fresh one was begun. What is in the Bin is still "
                 "there.",
                 {inSentence(displayText(aside.native()))}),
            {}};
}

FailureReport storeFailure(const Error& error) {
    return {text("The history couldn't be saved"),
            describe(error) + "\n" +
                text("What was done is noted in the journal and will be recorded at the next "
                     "start."),
            {{text("history"), error}}};
}

FailureReport journalFailure(const Error& error) {
    return {text("The journal of an earlier batch couldn't be settled"),
            inSentence(describe(error)),
            {{text("journal"), error}}};
}

std::string sacrificeActionName(std::size_t count) {
    return plural("Sacrifice", "Sacrifice of %1 Items", number(count));
}

} // namespace vexmoor
