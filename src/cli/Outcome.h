#pragma once

#include "intake/BatchReport.h"

#include <string>
#include <variant>

namespace vexmoor {

/// Why a command did not do its work: what the user is told, and what it ends with.
struct Refusal {
    int status;
    std::string sentence;
};

/// What became of a command that changes something. Of a setting the report is empty.
using Outcome = std::variant<BatchReport, Refusal>;

} // namespace vexmoor
