#include "Doctor.h"

#include "base/ByteCount.h"
#include "base/SqliteUserDefaults.h"
#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "disposal/TrashDirectory.h"
#include "intake/BinnedItems.h"
#include "intake/VolumeCheck.h"

namespace vexmoor {

namespace {

/// Counts of the recorded items that can be put back.
struct Counts {
    std::int64_t all = 0;
    std::int64_t there = 0; ///< an item exists at the path in the Bin
    std::int64_t away = 0;  ///< the volume is not mounted or does not answer
    std::int64_t missing = 0;
};

Counts countsOf(const BinnedItems& items) {
    Counts counts;
    VolumeCheck volumes;
    for (const auto& item : items.all()) {
        const Path place(*item.trashed);
        ++counts.all;
        if (!volumes.answersFor(place))
            ++counts.away;
        else if (fileStatus(place))
            ++counts.there;
        else
            ++(TrashDirectory::isOnAbsentVolume(place) ? counts.away : counts.missing);
    }
    return counts;
}

std::string sentenceOf(const Counts& counts) {
    if (counts.all == 0)
        return text("nothing can be put back");
    if (counts.all == counts.there)
        return plural("%1 item can be put back, and is in the Bin",
                      "%1 items can be put back, and all are in the Bin", counts.all);
    return plural("%1 item can be put back; in the Bin: %2, on volumes that are away: %3, "
                  "missing: %4",
                  "%1 items can be put back; in the Bin: %2, on volumes that are away: %3, "
                  "missing: %4",
                  counts.all,
                  {countText(counts.there), countText(counts.away), countText(counts.missing)});
}

} // namespace

DoctorTopic doctorRecords(const DoctorContext& context) {
    DoctorTopic topic{.key = "records", .title = text("Records"), .json = {}, .lines = {}};
    if (!context.defaults) {
        topic.json = {{"readable", false}, {"code", codeName(context.defaultsError->code)}};
        topic.lines.push_back(
            {text("History"), text("can't be read: %1", {context.defaultsError->message()})});
        return topic;
    }
    const Ledger ledger(*context.defaults, &Date::now);
    const auto counts = countsOf(BinnedItems(ledger, context.defaults->records()));
    topic.json = {{"readable", true},
                  {"canBePutBack", counts.all},
                  {"inBin", counts.there},
                  {"away", counts.away},
                  {"missing", counts.missing}};
    topic.lines.push_back({text("History"), sentenceOf(counts)});
    return topic;
}

} // namespace vexmoor
