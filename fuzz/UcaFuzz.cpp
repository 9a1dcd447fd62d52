#include "Property.h"

#include "integration/ThunarActions.h"

using namespace vexmoor;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* kElement = "<action><unique-id>vexmoor-feed</unique-id>"
                                     "<command>vexmoor feed --from-menu %F</command></action>";
    const std::string text = fuzz::textOf(data, size);
    const auto actions = ThunarActions::parse(text);
    if (!actions)
        return 0;
    const auto with = ThunarActions::parse(actions->with(kElement));
    fuzz::require(with && with->command() == ThunarActions::commandOf(kElement),
                  "our action is read as it was written");
    const auto without = ThunarActions::parse(with->without());
    fuzz::require(without.has_value(), "without our action the file is valid");
    if (!actions->command())
        fuzz::require(!without->command(), "our action can be taken out");
    return 0;
}
