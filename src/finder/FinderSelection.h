#pragma once

#include "base/Path.h"

#include <functional>
#include <variant>
#include <vector>

namespace vexmoor {

/// The file manager's selection, in its order.
struct Selection {
    std::vector<Path> items;
    int others = 0; ///< number of selected items that are not local files

    bool operator==(const Selection&) const = default;
};

enum class SelectionError {
    notPermitted, ///< the user does not allow reading the selection
    failed,
};

using SelectionResult = std::variant<Selection, SelectionError>;

/// Reads the file manager's selection (port). Main thread.
class FinderSelection {
  public:
    using Completion = std::function<void(const SelectionResult&)>;

    virtual ~FinderSelection() = default;
    /// Calls `completion` once, later, on the main thread. May ask the user for permission first.
    virtual void query(Completion completion) = 0;
};

} // namespace vexmoor
