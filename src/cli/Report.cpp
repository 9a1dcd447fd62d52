#include "Report.h"

#include "base/ByteCount.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"
#include "disposal/DisposalError.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr std::size_t kNamedItems = 10;

void printDone(const BatchResult& result, const char* what) {
    std::int64_t bytes = 0;
    for (const auto& item : result.done)
        bytes += item.bytes;
    const auto count = result.done.size();
    if (count > 0 && count <= kNamedItems) {
        for (std::size_t i = 0; i < count; ++i) {
            const auto& item = result.done[i];
            std::cout << what << ": " << printable(item.name) << " (" << byteCountText(item.bytes)
                      << ")";
            if (i < result.landings.size() && item.original &&
                result.landings[i] != *item.original && result.landings[i] != *item.trashed)
                std::cout << ", as " << printable(result.landings[i].native());
            std::cout << "\n";
        }
    } else if (count > 0) {
        std::cout << what << ": " << counted(static_cast<std::int64_t>(count), "item") << " ("
                  << byteCountText(bytes) << ")\n";
    }
}

} // namespace

Json toJson(const BatchResult& result) {
    Json json = {
        {"done", Json::array()}, {"failures", Json::array()}, {"untouched", Json::array()}};
    for (const auto& item : result.done)
        json["done"].push_back(toJson(item));
    for (const auto& failure : result.failures)
        json["failures"].push_back({{"name", failure.name}, {"error", describe(failure.error)}});
    for (const auto& path : result.untouched)
        json["untouched"].push_back(pathToJsonText(path.native()));
    if (!result.landings.empty()) {
        json["landings"] = Json::array();
        for (const auto& path : result.landings)
            json["landings"].push_back(pathToJsonText(path.native()));
    }
    if (!result.unlocked.empty()) {
        json["unlocked"] = Json::array();
        for (const auto& achievement : result.unlocked)
            json["unlocked"].push_back(achievement.id);
    }
    return json;
}

int reportBatch(const BatchResult& result, const char* what, bool asJson) {
    if (asJson)
        std::cout << toJson(result).dump(2) << "\n";
    else
        printDone(result, what);
    for (const auto& failure : result.failures)
        complain(printable(failure.name) + ": " + printable(describe(failure.error)));
    if (!result.untouched.empty())
        complain("Stopped. Left as it was: " +
                 counted(static_cast<std::int64_t>(result.untouched.size()), "item") + ".");
    if (result.storeError)
        complain("The history couldn't be saved: " + printable(describe(*result.storeError)) +
                 " It will be at the next start.");
    return result.failures.empty() && result.untouched.empty() && !result.storeError ? kAllDone
                                                                                     : kSomeFailed;
}

} // namespace vexmoor
