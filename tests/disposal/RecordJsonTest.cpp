#include "disposal/RecordJson.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vexmoor::test {
namespace {

using Json = nlohmann::ordered_json;

const Uuid kId = *Uuid::fromString("0F8FAD5B-D9CB-469F-A165-70867728950E");

Sacrifice fullRecord() {
    return {.id = kId,
            .name = "déjà vu.txt",
            .bytes = 4096,
            .mode = DisposeMode::bin,
            .date = {726100000.125},
            .original = "/home/a/déjà vu.txt",
            .trashed = "/home/a/Bin/\xff",
            .restored = Date{726100001},
            .lost = false,
            .deleted = Date{-0.1}};
}

constexpr const char* kFullJson =
    R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"déjà vu.txt","bytes":4096,)"
    R"("mode":"bin","date":726100000.125,"original":"/home/a/déjà vu.txt",)"
    R"("trashed":"file:///home/a/Bin/%FF","restored":726100001.0,"lost":false,"deleted":-0.1}])";

TEST(RecordJson, RoundTripsEveryFieldInOrder) {
    EXPECT_EQ(encode(std::vector{fullRecord()}), kFullJson);
    EXPECT_EQ(decodeSacrifices(kFullJson), std::vector{fullRecord()});
}

TEST(RecordJson, RoundTripsARecordWithFacts) {
    Sacrifice record = fullRecord();
    record.name = "quote \" backslash \\ line\n\x01";
    record.facts = {.kind = 0100000, .size = 7, .birthNanoseconds = -5, .inode = 9, .volume = "v"};
    auto expected = toJson(record);
    expected["facts"] = toJson(record.facts);
    EXPECT_EQ(Json::parse(recordText(record)), expected);
    EXPECT_EQ(recordFromJson(Json::parse(recordText(record))), record);
    Sacrifice bare;
    EXPECT_EQ(recordFromJson(Json::parse(recordText(bare))), bare);
}

TEST(RecordJson, HasIsoTimesInDocuments) {
    auto expected = toJson(fullRecord());
    expected["isoDate"] = "2024-01-04T22:26:40Z";
    expected["isoRestored"] = "2024-01-04T22:26:41Z";
    expected["isoDeleted"] = "2000-12-31T23:59:59Z";
    EXPECT_EQ(toDocument(fullRecord()), expected);
    EXPECT_EQ(sacrificeFromJson(expected), fullRecord());
    Sacrifice record;
    record.date = {-1e300};
    EXPECT_EQ(toDocument(record)["isoDate"], "1000-01-01T00:00:00Z");
    record.date = {1e300};
    EXPECT_EQ(toDocument(record)["isoDate"], "9999-12-31T23:59:59Z");
}

TEST(RecordJson, OmitsMissingFields) {
    Sacrifice dissolved;
    dissolved.id = kId;
    dissolved.name = "a";
    dissolved.mode = DisposeMode::dissolve;
    dissolved.date = {0.1};
    constexpr const char* kJson = R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a",)"
                                  R"("bytes":0,"mode":"dissolve","date":0.1}])";
    EXPECT_EQ(encode(std::vector{dissolved}), kJson);
    EXPECT_EQ(decodeSacrifices(kJson), std::vector{dissolved});
    EXPECT_EQ(encode(std::vector<Sacrifice>{}), "[]");
}

TEST(RecordJson, AcceptsEquivalentForms) {
    Json json = Json::parse(kFullJson)[0];
    json["id"] = "0f8fad5b-d9cb-469f-a165-70867728950e";
    json["date"] = 726100000; // integers are numbers too
    json["restored"] = nullptr;
    json.erase("lost");
    json["future"] = {1, 2};
    Sacrifice expected = fullRecord();
    expected.date = {726100000};
    expected.restored = std::nullopt;
    expected.lost = std::nullopt;
    EXPECT_EQ(sacrificeFromJson(json), expected);
}

TEST(RecordJson, RejectsAnArrayWithOneInvalidRecord) {
    for (const char* key : {"id", "name", "bytes", "mode", "date"})
        for (const Json& value : {Json(), Json(Json::value_t::discarded)}) {
            Json array = Json::parse(kFullJson);
            array.push_back(array[0]);
            array[1][key] = value;
            if (value.is_discarded())
                array[1].erase(key);
            EXPECT_FALSE(decodeSacrifices(array.dump())) << array[1];
        }
    const struct {
        const char* key;
        Json value;
    } cases[] = {
        {"id", "0F8FAD5B"},
        {"id", 7},
        {"name", 7},
        {"bytes", "4096"},
        {"bytes", 4096.5},
        {"bytes", 9223372036854775808ULL}, // out of range
        {"mode", "Bin"},
        {"mode", ""},
        {"mode", 0},
        {"date", "2024-01-01"},
        {"date", true},
        {"original", 7},
        {"trashed", Json::array()},
        {"restored", "now"},
        {"lost", 1},
        {"deleted", false},
    };
    for (const auto& test : cases) {
        Json array = Json::parse(kFullJson);
        array[0][test.key] = test.value;
        EXPECT_FALSE(decodeSacrifices(array.dump())) << test.key << ": " << test.value;
    }
    for (const char* text : {"", "{}", "null", "[1]", "[[]]", "[", "[]]", "[{\"id\":\"\xff\"}]"})
        EXPECT_FALSE(decodeSacrifices(text)) << text;
}

TEST(RecordJson, KeepsTheHistoryWhenANameIsNotUtf8) {
    Sacrifice record = fullRecord();
    record.name = "a\xff";
    const auto read = decodeSacrifices(encode(std::vector{record}));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->at(0).name, "a\xEF\xBF\xBD");
}

TEST(RecordJson, WritesDaysAsOneFlatArray) {
    const std::map<Date, DayTally> days = {{{726105600}, {2, 8192}}, {{726192000.5}, {1, 0}}};
    constexpr const char* kJson =
        R"([726105600.0,{"count":2,"bytes":8192},726192000.5,{"count":1,"bytes":0}])";
    EXPECT_EQ(encode(days), kJson);
    EXPECT_EQ(decodeDays(kJson), days);
    EXPECT_EQ(decodeDays("[]"), (std::map<Date, DayTally>()));
    EXPECT_EQ(
        decodeDays(R"([726192000.5,{"bytes":0,"count":1},726105600,{"count":2,"bytes":8192}])"),
        days);
    for (const char* text :
         {"", "{}", "[1]", R"([{"count":1,"bytes":0},1])", R"([1,{"count":1}])",
          R"([1,{"count":1,"bytes":null}])", R"([1,{"count":1.5,"bytes":0}])", R"([1,2])",
          R"(["1",{"count":1,"bytes":0}])", R"([1,{"count":1,"bytes":0},2])"})
        EXPECT_FALSE(decodeDays(text)) << text;
}

} // namespace
} // namespace vexmoor::test
