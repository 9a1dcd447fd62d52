#include "FedItems.h"

#include "disposal/DisposalError.h"

namespace vexmoor {

FedItems FedItems::of(const std::vector<Path>& items, const std::vector<FileIdentity>& seen,
                      const std::set<std::string>& inFlight, bool tellsOfThoseOnTheWay) {
    FedItems fed;
    std::set<std::string> distinct;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (endsInDots(items[i])) {
            fed.refused.push_back(
                {displayText(items[i].native()), disposalError(DisposalError::isDots), items[i]});
            continue;
        }
        const Path path = standardized(items[i]);
        const bool isOnTheWay = inFlight.contains(path.native());
        const bool isNew = distinct.insert(path.native()).second;
        if (isNew && !isOnTheWay)
            fed.items.emplace_back(path);
        if (isNew && isOnTheWay && tellsOfThoseOnTheWay)
            fed.refused.push_back(
                {displayText(lastComponent(path)), disposalError(DisposalError::isOnTheWay), path});
        if (i < seen.size())
            fed.seen.emplace(path.native(), seen[i]);
    }
    return fed;
}

void FedItems::look() {
    if (seen.empty())
        for (const auto& item : items)
            seen.emplace(item.native(), identityAt(item));
}

} // namespace vexmoor
