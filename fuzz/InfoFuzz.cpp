#include "Property.h"

#include "disposal/TrashInfo.h"

using namespace vexmoor;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto info = TrashInfo::fromText(fuzz::textOf(data, size));
    if (!info)
        return 0;
    const auto again = TrashInfo::fromText(info->toText());
    fuzz::require(again && again->path == info->path, "an info file keeps the path");
    if (info->deletionDate)
        static_cast<void>(info->isOfMoment(*info->deletionDate));
    return 0;
}
