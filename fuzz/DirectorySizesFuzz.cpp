#include "Property.h"

#include "disposal/DirectorySizes.h"

using namespace vexmoor;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const auto& [name, entry] : DirectorySizes::parse(fuzz::textOf(data, size))) {
        fuzz::require(!name.empty(), "an entry has a name");
        fuzz::require(name.find('/') == std::string::npos, "an entry names an item of the Bin");
        fuzz::require(entry.bytes >= 0, "a size is not negative");
    }
    return 0;
}
