#include "Property.h"

#include "base/JsonReader.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

using namespace vexmoor;

namespace {

/// What is decoded is encoded so that it is decoded to the same again.
template <typename Decode>
void requireRoundTrip(const std::string& text, Decode decode) {
    const auto value = decode(text);
    if (!value)
        return;
    const auto encoded = encode(*value);
    const auto again = decode(encoded);
    fuzz::require(again && encode(*again) == encoded, "encoding and decoding change nothing");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    requireRoundTrip(text, &decodeSacrifices);
    requireRoundTrip(text, &decodeDays);
    if (const auto record = recordFromJson(parsedJson(text))) {
        const auto again = recordFromJson(parsedJson(recordText(*record)));
        fuzz::require(again && recordText(*again) == recordText(*record),
                      "a record's text is read as it was written");
    }
    return 0;
}
