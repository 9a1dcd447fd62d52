#include "Property.h"

#include "integration/DolphinShortcuts.h"
#include "integration/LineAccelerators.h"
#include "integration/NemoActionsTree.h"

using namespace vexmoor;

namespace {

void check(const AcceleratorText& format, const std::string& text) {
    const auto status = format.status(text);
    if (!status)
        return;
    if (*status == AcceleratorStatus::notInstalled) {
        const std::string with = format.with(text);
        fuzz::require(format.status(with) == AcceleratorStatus::installed, "a binding is read");
        fuzz::require(format.status(format.without(with)) == AcceleratorStatus::notInstalled,
                      "a binding can be taken out");
    }
    fuzz::require(format.status(format.without(text)).has_value(),
                  "without our binding the file is valid");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    check(ScriptAccelerators("Feed to Vexmoor"), text);
    check(AcceleratorMap("<Actions>/ThunarActions/uca-action-vexmoor-feed"), text);
    check(NemoActionsTree("vexmoor-feed.nemo_action"), text);
    check(DolphinShortcuts(), text);
    check(DolphinProfile(), text);
    return 0;
}
