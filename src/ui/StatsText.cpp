#include "StatsText.h"

#include "base/ByteCount.h"
#include "base/Text.h"
#include "disposal/Ledger.h"
#include "progression/Progress.h"

namespace vexmoor {
namespace {

QString grouped(std::int64_t number) {
    return QString::fromStdString(countText(number));
}

QString size(std::int64_t bytes) {
    return QString::fromStdString(byteCountText(bytes));
}

} // namespace

StatsText StatsText::of(const Ledger& ledger, const Progress& progress) {
    const std::int64_t count = ledger.count.get();
    StatsText text;
    text.count = grouped(count);
    text.countCaption = QString::fromStdString(plural("sacrifice", "sacrifices", count));
    text.bytes = size(ledger.bytes.get());
    text.bytesCaption = tr("consumed");
    text.streak = grouped(progress.streak);
    text.streakCaption = tr("day streak");
    return text;
}

} // namespace vexmoor
