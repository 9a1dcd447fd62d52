#include "intake/BatchReport.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vexmoor::test {

namespace {

Sacrifice item(const std::string& name) {
    Sacrifice sacrifice;
    sacrifice.id = Uuid::generate();
    sacrifice.name = displayText(name);
    sacrifice.bytes = 4096;
    sacrifice.date = Date{7e8};
    sacrifice.original = "/home/ada/" + name;
    sacrifice.trashed = "/home/ada/Trash/files/" + name;
    return sacrifice;
}

BatchResult everything() {
    BatchResult result;
    result.done = {item("new\nline"), item("broken\xff")};
    result.landings = {"/home/ada/new\nline", "/home/ada/broken 2\xff"};
    result.failures = {{"a “b”", disposalError(DisposalError::goneFromBin, "b")}};
    result.untouched = {"/left\xfe"};
    result.unlocked = {Achievement::all().front()};
    result.storeError = Error::fromErrno(ENOSPC, "write", "/db");
    return result;
}

TEST(BatchReport, ComesBackFromItsTextAsItWas) {
    BatchResult declined;
    declined.declined = true;
    for (const auto& result : {everything(), declined, BatchResult()}) {
        const auto report = BatchReport::of(result);
        const auto text = jsonText(toJson(report));
        EXPECT_TRUE(isValidUtf8(text));
        EXPECT_EQ(batchReportFromJson(parsedJson(text)), report) << text;
    }
    const auto report = BatchReport::of(everything());
    EXPECT_EQ(report.failures,
              (std::vector<BatchReport::Failed>{{"a “b”", "b is no longer in the Bin."}}));
    EXPECT_EQ(report.storeError, "No space left on device (write /db).");
    EXPECT_FALSE(report.isEmpty());
    EXPECT_TRUE(BatchReport::of({}).isEmpty());
}

TEST(BatchReport, IsNotMadeOfAnythingElse) {
    const std::string whole = jsonText(toJson(BatchReport::of(everything())));
    EXPECT_FALSE(batchReportFromJson(parsedJson(whole.substr(0, whole.size() - 1))));
    for (const char* const change :
         {R"({"done": null})", R"({"done": {}})", R"({"done": [{}]})", R"({"failures": null})",
          R"({"failures": [{"name": "a"}]})", R"({"failures": ["a"]})", R"({"untouched": [1]})",
          R"({"landings": "/a"})", R"({"unlocked": [true]})", R"({"declined": 1})",
          R"({"storeError": []})"}) {
        auto json = parsedJson(whole);
        json.merge_patch(parsedJson(change));
        EXPECT_FALSE(batchReportFromJson(json)) << change;
    }
    for (const char* const text : {"", "[]", "null", "7", "{}"})
        EXPECT_FALSE(batchReportFromJson(parsedJson(text))) << text;
}

} // namespace

} // namespace vexmoor::test
