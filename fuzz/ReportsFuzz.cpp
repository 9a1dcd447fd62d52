#include "Property.h"

#include "base/JsonReader.h"
#include "intake/BatchReport.h"

#include <nlohmann/json.hpp>

using namespace vexmoor;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto report = batchReportFromJson(parsedJson(fuzz::textOf(data, size)));
    if (!report)
        return 0;
    const std::string text = jsonText(toJson(*report));
    const auto again = batchReportFromJson(parsedJson(text));
    fuzz::require(again && jsonText(toJson(*again)) == text, "a report is read as it was written");
    return 0;
}
