#pragma once

#include "disposal/DisposeMode.h"
#include "intake/DisposalJob.h"

#include <set>
#include <string>

namespace vexmoor {

/// The items of one fed batch, without duplicates, with the files that were at their paths when the
/// user was asked; and the items refused before asking.
struct FedItems {
    std::vector<StoredPath> items;
    SeenItems seen;
    std::vector<Failure> refused;

    /// `seen` has one entry per item or is empty. Omits items in `inFlight`, and reports them as
    /// failures if `tellsOfThoseOnTheWay`.
    static FedItems of(const std::vector<Path>& items, const std::vector<FileIdentity>& seen,
                       const std::set<std::string>& inFlight, bool tellsOfThoseOnTheWay);

    /// Records the files at the paths, if that has not been done.
    void look();
};

} // namespace vexmoor
