#include "Report.h"

#include "base/ByteCount.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace vexmoor {

namespace {

constexpr std::size_t kNamedItems = 10;

void printDone(const BatchReport& report, const char* what) {
    std::int64_t bytes = 0;
    for (const auto& item : report.done)
        bytes += item.bytes;
    const auto count = report.done.size();
    if (count > 0 && count <= kNamedItems) {
        for (std::size_t i = 0; i < count; ++i) {
            const auto& item = report.done[i];
            std::cout << what << ": " << printable(item.name) << " (" << byteCountText(item.bytes)
                      << ")";
            if (i < report.landings.size() && item.original &&
                report.landings[i] != item.original && report.landings[i] != item.trashed)
                std::cout << ", as " << printable(report.landings[i].native());
            std::cout << "\n";
        }
    } else if (count > 0) {
        std::cout << what << ": " << counted(static_cast<std::int64_t>(count), "item") << " ("
                  << byteCountText(bytes) << ")\n";
    }
}

} // namespace

int reportBatch(const BatchReport& report, const char* what, bool asJson) {
    if (asJson)
        std::cout << toJson(report).dump(2) << "\n";
    else
        printDone(report, what);
    for (const auto& [name, text] : report.failures)
        complain((text.starts_with(name) ? "" : printable(name) + ": ") + printable(text));
    if (!report.untouched.empty())
        complain("Stopped. Left as it was: " +
                 counted(static_cast<std::int64_t>(report.untouched.size()), "item") + ".");
    if (report.storeError)
        complain("The history couldn't be saved: " + printable(*report.storeError) +
                 " It will be at the next start.");
    return report.failures.empty() && report.untouched.empty() && !report.storeError ? kAllDone
                                                                                     : kSomeFailed;
}

void printRefusal(const std::string& sentence) {
    auto json = toJson(BatchReport());
    json["error"] = displayText(sentence);
    std::cout << json.dump(2) << "\n";
}

} // namespace vexmoor
