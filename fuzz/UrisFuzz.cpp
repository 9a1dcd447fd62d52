#include "Property.h"

#include "base/Path.h"
#include "dock/DroppedUris.h"

using namespace vexmoor;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto dropped = DroppedUris::fromList(fuzz::textOf(data, size));
    fuzz::require(dropped.others >= 0, "a count is not negative");
    for (const Path& item : dropped.items) {
        fuzz::require(item.is_absolute(), "a dropped item has an absolute path");
        fuzz::require(item.native().find('\0') == std::string::npos, "a path has no NUL");
        fuzz::require(pathFromFileUri(fileUri(item)) == item, "a URI keeps the path");
    }
    return 0;
}
