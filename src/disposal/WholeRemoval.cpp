#include "WholeRemoval.h"

#include "disposal/DisposalError.h"
#include "disposal/TreeRemoval.h"

namespace vexmoor {

Result<void> removeWhole(int folder, const std::string& name, WorkMeter* meter) {
    const auto report = removeTree(folder, name.c_str(), meter);
    if (report.stopped && report.removed == 0)
        return disposalError(DisposalError::stopped);
    if (report.stopped)
        return Error{make_error_code(DisposalError::stoppedPartly), {}, {}, report.removed};
    if (report.failures.empty() && report.remaining == 0)
        return {};
    if (report.remaining <= 1 && report.failures.size() == 1 &&
        report.failures.front().path == name)
        return Error{report.failures.front().code, {}, {}};
    return Error{
        make_error_code(DisposalError::partlyRemoved), {}, {}, report.remaining, report.failures};
}

} // namespace vexmoor
