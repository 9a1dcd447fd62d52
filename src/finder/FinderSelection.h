#pragma once

#include "base/Path.h"

#include <functional>
#include <variant>
#include <vector>

namespace vexmoor {

/// What is selected in the file manager, in its order.
struct Selection {
    std::vector<Path> items;
    int others = 0; ///< selected things that are no files of this computer

    bool operator==(const Selection&) const = default;
};

enum class SelectionError {
    notPermitted, ///< the user does not allow the file manager to be asked
    failed,
};

using SelectionResult = std::variant<Selection, SelectionError>;

/// Asks the file manager for its selection (port). Main thread.
class FinderSelection {
  public:
    using Completion = std::function<void(const SelectionResult&)>;

    virtual ~FinderSelection() = default;
    /// Answers once, on the main thread, later; may ask the user for permission first.
    virtual void query(Completion completion) = 0;
};

} // namespace vexmoor
