#include "Report.h"

#include "base/Path.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <map>

namespace vexmoor {

namespace {

constexpr std::size_t kNamedItems = 10;

std::string lineFor(Deed deed, std::string_view name, std::string_view size) {
    switch (deed) {
    case Deed::binned:
        return text("To the Bin: %1 (%2)", {name, size});
    case Deed::dissolved:
        return text("Dissolved: %1 (%2)", {name, size});
    case Deed::putBack:
        return text("Put back: %1 (%2)", {name, size});
    case Deed::deleted:
        return text("Deleted from the Bin: %1 (%2)", {name, size});
    }
    return {};
}

std::string lineFor(Deed deed, std::size_t items, std::string_view size) {
    const auto count = static_cast<std::int64_t>(items);
    switch (deed) {
    case Deed::binned:
        return plural("To the Bin: %1 item (%2)", "To the Bin: %1 items (%2)", count, {size});
    case Deed::dissolved:
        return plural("Dissolved: %1 item (%2)", "Dissolved: %1 items (%2)", count, {size});
    case Deed::putBack:
        return plural("Put back: %1 item (%2)", "Put back: %1 items (%2)", count, {size});
    case Deed::deleted:
        return plural("Deleted from the Bin: %1 item (%2)", "Deleted from the Bin: %1 items (%2)",
                      count, {size});
    }
    return {};
}

/// Returns an item's line. Shows the new path if the item was put back elsewhere.
std::string lineFor(const BatchReport& report, std::size_t index, Deed deed) {
    const auto& item = report.done[index];
    const auto name = printable(item.name);
    const auto size = sizeText(item.bytes);
    const bool isElsewhere = index < report.landings.size() && item.original &&
                             report.landings[index] != item.original &&
                             report.landings[index] != item.trashed;
    return isElsewhere ? text("Put back: %1 (%2), as %3",
                              {name, size, printable(report.landings[index].native())})
                       : lineFor(deed, name, size);
}

void printDone(const BatchReport& report, Deed deed, bool namesAll) {
    const auto count = report.done.size();
    std::int64_t bytes = 0;
    for (const auto& item : report.done)
        bytes += item.bytes;
    if (count > kNamedItems && !namesAll)
        std::cout << lineFor(deed, count, sizeText(bytes)) << "\n";
    else
        for (std::size_t i = 0; i < count; ++i)
            std::cout << lineFor(report, i, deed) << "\n";
}

/// Maps absolute paths to the paths as typed.
using TypedItems = std::map<std::string, std::string>;

TypedItems typedItems(const std::vector<std::string>& items) {
    TypedItems typed;
    for (const auto& item : items)
        typed.emplace(standardized(item).native(), item);
    return typed;
}

void complainAbout(const Failure& failure, const TypedItems& typed) {
    const auto found = failure.path ? typed.find(failure.path->native()) : typed.end();
    const auto& item = found == typed.end() ? failure.name : found->second;
    const auto sentence = describe(failure.error);
    complain((sentence.starts_with(failure.name) ? "" : printable(displayText(item)) + ": ") +
             printable(sentence));
}

} // namespace

int reportBatch(const BatchReport& report, Deed deed, const Invocation& invocation) {
    if (invocation.json)
        std::cout << toJson(report).dump(2) << "\n";
    else if (!invocation.quiet)
        printDone(report, deed, invocation.verbose);
    const auto typed = report.failures.empty() ? TypedItems() : typedItems(invocation.items);
    for (const auto& failure : report.failures)
        complainAbout(failure, typed);
    if (!report.untouched.empty())
        complain(plural("Stopped. Left as it was: %1 item.", "Stopped. Left as it was: %1 items.",
                        static_cast<std::int64_t>(report.untouched.size())));
    if (report.storeError)
        complain(text("The history couldn't be saved: %1 It will be at the next start.",
                      {printable(describe(*report.storeError))}));
    return report.failures.empty() && report.untouched.empty() && !report.storeError ? kAllDone
                                                                                     : kSomeFailed;
}

void printRefusal(const Refusal& refusal) {
    auto json = toJson(BatchReport());
    json.update(toJson(refusal));
    std::cout << json.dump(2) << "\n";
}

} // namespace vexmoor
