#include "Texts.h"

#include "base/Text.h"

#include "disposal/DisposalError.h"

#include <algorithm>
#include <iterator>

namespace vexmoor {

namespace {

/// A name as it is shown in a sentence: control characters, line ends among them, become their
/// pictures, so that no name can pass for more of the text.
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

/// The first lines, and how many there are more.
std::string listed(std::size_t count, const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), kListedFailures); ++i)
        text += (i > 0 ? "\n" : "") + lines[i];
    if (count > kListedFailures)
        text += "\n…and " + std::to_string(count - kListedFailures) + " more.";
    return text;
}

FailureReport failureReport(const std::string& verb, std::vector<Failure> failures) {
    FailureReport report;
    const auto count = failures.size();
    report.message =
        verb + " " +
        (count == 1 ? inSentence(failures.front().name) : std::to_string(count) + " items");
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
    return {count == 1 ? "Dissolve this item forever?"
                       : "Dissolve " + std::to_string(count) + " items forever?",
            "Dissolve mode skips the Bin. There is no Put Back.",
            "Dissolve",
            "Cancel",
            "Don't ask again",
            names.empty() ? "" : listed(count, lines)};
}

Question deleteQuestion(const std::vector<Sacrifice>& items) {
    return {items.size() == 1 ? "Are you sure you want to delete “" +
                                    inSentence(items.front().name) + "” immediately?"
                              : "Are you sure you want to delete these " +
                                    std::to_string(items.size()) + " items immediately?",
            "You can’t undo this action.", "Delete", "Cancel", std::nullopt};
}

FailureReport intakeFailures(std::vector<Failure> failures) {
    return failureReport("The cauldron rejected", std::move(failures));
}

FailureReport putBackFailures(std::vector<Failure> failures) {
    return failureReport("Couldn't put back", std::move(failures));
}

FailureReport deleteFailures(std::vector<Failure> failures) {
    return failureReport("Couldn't delete", std::move(failures));
}

FailureReport stoppedReport(std::size_t count) {
    return {"Vexmoor stopped before it was done",
            count == 1 ? "1 item was left as it was."
                       : std::to_string(count) + " items were left as they were.",
            {}};
}

FailureReport foreignReport(bool tookOthers) {
    return {tookOthers ? "The cauldron did not take everything"
                       : "The cauldron took nothing of that",
            "It takes only files and folders that are on this computer.",
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
    return {count == 1 ? "A command was not carried out"
                       : std::to_string(count) + " commands were not carried out",
            "Too many came at a time, and the programs that sent them did not wait for an answer. "
            "Nothing of these was touched.",
            {}};
}

FailureReport furtherReports(std::size_t count, const std::vector<std::string>& lines) {
    return {count == 1 ? "One more failure" : std::to_string(count) + " more failures",
            listed(count, lines),
            {}};
}

FailureReport damagedStore(const Path& aside) {
    return {"The history was damaged",
            "It was set aside as " + inSentence(displayText(aside.native())) +
                ". A fresh one was begun. What is in the Bin is still there.",
            {}};
}

FailureReport storeFailure(const Error& error) {
    return {"The history couldn't be saved",
            describe(error) + "\nWhat was done is noted in the journal and will be recorded at the "
                              "next start.",
            {{"history", error}}};
}

FailureReport journalFailure(const Error& error) {
    return {"The journal of an earlier batch couldn't be settled",
            inSentence(describe(error)),
            {{"journal", error}}};
}

std::string sacrificeActionName(std::size_t count) {
    return count == 1 ? "Sacrifice" : "Sacrifice of " + std::to_string(count) + " Items";
}

} // namespace vexmoor
