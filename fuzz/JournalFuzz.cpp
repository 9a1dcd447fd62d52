#include "Property.h"

#include "disposal/JournalEntry.h"

using namespace vexmoor;

namespace {

std::string linesOf(const std::vector<JournalBatch>& batches) {
    std::string lines;
    for (const auto& batch : batches) {
        lines += headerLine(batch.number, batch.kind, batch.mode);
        for (const auto& entry : batch.entries) {
            lines += intentLine(entry);
            if (entry.isBegun)
                lines += begunLine(entry.sacrifice.id);
            if (entry.outcome == JournalEntry::Outcome::done)
                lines += doneLine(entry.sacrifice.id);
            if (entry.outcome == JournalEntry::Outcome::failed)
                lines += failedLine(entry.sacrifice.id, entry.failure);
        }
    }
    return lines;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<JournalBatch> batches;
    if (!readLines(fuzz::textOf(data, size), batches))
        return 0;
    const std::string lines = linesOf(batches);
    std::vector<JournalBatch> again;
    fuzz::require(readLines(lines, again).ok(), "what is written can be read");
    fuzz::require(linesOf(again) == lines, "reading and writing change nothing");
    return 0;
}
