#include "WholeRemoval.h"

#include "base/Path.h"
#include "disposal/DisposalError.h"
#include "disposal/TreeRemoval.h"

namespace vexmoor {

namespace {

std::string whatRemains(const RemovalReport& report) {
    std::string text = std::to_string(report.remaining) +
                       (report.remaining == 1 ? " item remains" : " items remain");
    const char* separator = ", among them ";
    for (const auto& failure : report.failures) {
        text += separator + displayText(failure.path.native()) + " (" + failure.message() + ")";
        separator = ", ";
    }
    return text;
}

} // namespace

Result<void> removeWhole(int folder, const std::string& name, WorkMeter* meter) {
    const auto report = removeTree(folder, name.c_str(), meter);
    if (report.stopped && report.removed == 0)
        return disposalError(DisposalError::stopped);
    if (report.stopped)
        return disposalError(DisposalError::partlyRemoved, {},
                             "it was stopped after " + std::to_string(report.removed) + " items");
    if (report.failures.empty() && report.remaining == 0)
        return {};
    if (report.remaining <= 1 && report.failures.size() == 1 &&
        report.failures.front().path == Path(name))
        return Error{report.failures.front().code, {}, {}};
    return disposalError(DisposalError::partlyRemoved, {}, whatRemains(report));
}

} // namespace vexmoor
