#include "Property.h"

#include "disposal/Settings.h"
#include "intake/NamedSettings.h"
#include "support/WindowStores.h"

using namespace vexmoor;

/// The first line is the name, the rest the value.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    const auto lineEnd = std::min(text.find('\n'), text.size());
    const std::string name = text.substr(0, lineEnd);
    const std::string value = text.substr(std::min(lineEnd + 1, text.size()));
    test::WindowStores stores;
    NamedSettings settings(stores.settings, stores.progression);
    const bool isRefused = settings.complaintAbout(name, value).has_value();
    const auto complaint = settings.assign(name, value);
    fuzz::require(complaint.has_value() == isRefused, "assign() refuses what has a complaint");
    fuzz::require(!complaint || !complaint->sentence.empty(), "a complaint has a sentence");
    return 0;
}
