#pragma once

#include "disposal/DisposeMode.h"
#include "intake/DisposalJob.h"

#include <set>
#include <string>

namespace vexmoor {

/// The items of one fed batch: each once, with what stood at its path when the user was asked, and
/// why others are refused before anything is asked.
struct FedItems {
    std::vector<StoredPath> items;
    SeenItems seen;
    std::vector<Failure> refused;

    /// `seen` belongs to `items` or is empty. What is in `inFlight` is left out, and a failure
    /// where `tellsOfThoseOnTheWay`.
    static FedItems of(const std::vector<Path>& items, const std::vector<FileIdentity>& seen,
                       const std::set<std::string>& inFlight, bool tellsOfThoseOnTheWay);

    /// Looks at what stands at the paths now, where that was not done before.
    void look();
};

} // namespace vexmoor
