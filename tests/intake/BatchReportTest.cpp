#include "intake/BatchReport.h"

#include "base/JsonReader.h"
#include "base/SqliteError.h"
#include "disposal/DisposalError.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sqlite3.h>

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
    Error partly = Error{make_error_code(DisposalError::partlyRemoved), {}, {}, 3};
    partly.causes = {Error::fromErrno(EACCES, "remove", "tree/broken\xff")};
    result.failures = {{"a “b”", disposalError(DisposalError::goneFromBin, "b"), "/home/b\xff"},
                       {"c", Error::fromErrno(ENOENT, "open", "/c")},
                       {"d", {{SQLITE_FULL, sqliteCategory()}, {}, {}}},
                       {"tree", partly}};
    result.untouched = {"/left\xfe"};
    result.unlocked = {Achievement::all().front()};
    result.storeError = Error::fromErrno(ENOSPC, "write", "/db");
    return result;
}

TEST(BatchReport, RoundTripsThroughItsText) {
    BatchResult declined;
    declined.declined = true;
    for (const auto& result : {everything(), declined, BatchResult()}) {
        const auto report = BatchReport::of(result);
        const auto text = jsonText(toJson(report));
        EXPECT_TRUE(isValidUtf8(text));
        EXPECT_EQ(batchReportFromJson(parsedJson(text)), report) << text;
    }
    const auto report = BatchReport::of(everything());
    EXPECT_FALSE(report.isEmpty());
    EXPECT_TRUE(BatchReport::of({}).isEmpty());
}

TEST(BatchReport, ContainsTheCodeAndThePathOfEachFailure) {
    const auto json = toJson(BatchReport::of(everything()));
    const auto& failures = json["failures"];
    EXPECT_EQ(jsonText(failures[0]),
              R"({"name":"a “b”","path":"file:///home/b%FF","code":"goneFromBin",)"
              R"("message":"b is no longer in the Bin.","cause":{"path":"b"},)"
              R"("error":"b is no longer in the Bin."})");
    EXPECT_EQ(failures[1]["code"], "ENOENT");
    EXPECT_EQ(failures[1]["message"], "No such file or directory (open /c).");
    EXPECT_EQ(failures[2]["code"], "databaseFull");
    EXPECT_EQ(failures[3]["message"], "Not all of it could be removed: 3 items remain, including "
                                      "tree/broken\uFFFD (Permission denied).");
    EXPECT_EQ(json["storeError"], "No space left on device (write /db).");
    EXPECT_EQ(json["storeFailure"]["code"], "ENOSPC");
}

TEST(BatchReport, KeepsTheMessageOfAnUnknownCode) {
    auto json = toJson(BatchReport::of(everything()));
    json["failures"][0]["code"] = "ofTheFuture";
    const auto report = batchReportFromJson(json);
    ASSERT_TRUE(report);
    EXPECT_EQ(describe(report->failures[0].error), "b is no longer in the Bin.");
}

TEST(BatchReport, RejectsOtherDocuments) {
    const std::string whole = jsonText(toJson(BatchReport::of(everything())));
    EXPECT_FALSE(batchReportFromJson(parsedJson(whole.substr(0, whole.size() - 1))));
    for (const char* const change :
         {R"({"done": null})", R"({"done": {}})", R"({"done": [{}]})", R"({"failures": null})",
          R"({"failures": [{"name": "a"}]})", R"({"failures": ["a"]})", R"({"untouched": [1]})",
          R"({"landings": "/a"})", R"({"unlocked": [true]})", R"({"declined": 1})",
          R"({"storeFailure": []})", R"({"storeFailure": {"code": 5}})",
          R"({"failures": [{"name": "a", "code": "EIO", "message": "", "cause": {"path": 1}}]})"}) {
        auto json = parsedJson(whole);
        json.merge_patch(parsedJson(change));
        EXPECT_FALSE(batchReportFromJson(json)) << change;
    }
    for (const char* const text : {"", "[]", "null", "7", "{}"})
        EXPECT_FALSE(batchReportFromJson(parsedJson(text))) << text;
}

} // namespace

} // namespace vexmoor::test
