#include "Texts.h"

#include "disposal/DisposalError.h"

namespace vexmoor {

namespace {

FailureReport failureReport(const std::string& verb, std::vector<Failure> failures) {
    FailureReport report;
    const auto count = failures.size();
    report.message =
        verb + " " + (count == 1 ? failures.front().name : std::to_string(count) + " items");
    if (count == 1) {
        report.informative = describe(failures.front().error);
    } else {
        for (std::size_t i = 0; i < std::min(count, kListedFailures); ++i)
            report.informative +=
                (i > 0 ? "\n" : "") + failures[i].name + ": " + describe(failures[i].error);
        if (count > kListedFailures)
            report.informative += "\n…and " + std::to_string(count - kListedFailures) + " more.";
    }
    report.failures = std::move(failures);
    return report;
}

} // namespace

Question dissolveQuestion(std::size_t count) {
    return {count == 1 ? "Dissolve this item forever?"
                       : "Dissolve " + std::to_string(count) + " items forever?",
            "Dissolve mode skips the Bin. There is no Put Back.", "Dissolve", "Cancel",
            "Don't ask again"};
}

Question deleteQuestion(const std::vector<Sacrifice>& items) {
    return {items.size() == 1
                ? "Are you sure you want to delete “" + items.front().name + "” immediately?"
                : "Are you sure you want to delete these " + std::to_string(items.size()) +
                      " items immediately?",
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

FailureReport storeFailure(const Error& error) {
    return {"The history couldn't be saved",
            describe(error) + "\nWhat was done is noted in the journal and will be recorded at the "
                              "next start.",
            {{"history", error}}};
}

std::string sacrificeActionName(std::size_t count) {
    return count == 1 ? "Sacrifice" : "Sacrifice of " + std::to_string(count) + " Items";
}

} // namespace vexmoor
