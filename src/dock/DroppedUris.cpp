#include "DroppedUris.h"

#include <algorithm>

namespace vexmoor {

DroppedUris DroppedUris::fromList(std::string_view list) {
    constexpr std::string_view kLineEnds("\r\n\0", 3); // some senders terminate the list with a NUL
    DroppedUris result;
    while (!list.empty()) {
        const std::string_view line = list.substr(0, list.find_first_of(kLineEnds));
        list.remove_prefix(std::min(list.size(), line.size() + 1));
        if (line.empty() || line.front() == '#')
            continue;
        if (auto path = pathFromFileUri(line))
            result.items.push_back(std::move(*path));
        else
            ++result.others;
    }
    return result;
}

} // namespace vexmoor
