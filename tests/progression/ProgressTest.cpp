#include "progression/Progress.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vexmoor::test {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kJson =
    R"({"items":3,"bytes":5000000000,"biggest":4000000000,"folders":1,"dissolved":2,"streak":4,)"
    R"("bestStreak":9,"lastDay":726105600.0,"extensions":["jpg","ü"],)"
    R"("unlocked":["gb1","first"],"skin":"witchfire"})";

Progress fullRecord() {
    Progress progress;
    progress.items = 3;
    progress.bytes = 5000000000;
    progress.biggest = 4000000000;
    progress.folders = 1;
    progress.dissolved = 2;
    progress.streak = 4;
    progress.bestStreak = 9;
    progress.lastDay = Date{726105600};
    progress.extensions = {"ü", "jpg"};
    progress.unlocked = {"gb1", "first"};
    progress.skin = "witchfire";
    return progress;
}

TEST(Progress, RoundTripsThroughJson) {
    EXPECT_EQ(encode(fullRecord()), kJson);
    EXPECT_EQ(decodeProgress(kJson), fullRecord());
    EXPECT_EQ(encode(Progress()),
              R"({"items":0,"bytes":0,"biggest":0,"folders":0,"dissolved":0,"streak":0,)"
              R"("bestStreak":0,"extensions":[],"unlocked":[],"skin":"iron"})");
    EXPECT_EQ(decodeProgress(encode(Progress())), Progress());
}

TEST(Progress, RejectsMissingAndMistypedKeys) {
    const Json full = Json::parse(kJson);
    for (const auto& [key, value] : full.items()) {
        Json without = full;
        without.erase(key);
        EXPECT_EQ(decodeProgress(without.dump()).has_value(), key == "lastDay") << key;
        Json mistyped = full;
        mistyped[key] = Json::object();
        EXPECT_FALSE(decodeProgress(mistyped.dump())) << key;
    }
    const struct {
        const char* key;
        Json value;
    } cases[] = {
        {"items", 1.5},
        {"bytes", 9223372036854775808ULL},
        {"lastDay", "yesterday"},
        {"extensions", "jpg"},
        {"extensions", Json::array({1})},
        {"unlocked", Json::array({"first", nullptr})},
        {"skin", nullptr},
    };
    for (const auto& test : cases) {
        Json json = full;
        json[test.key] = test.value;
        EXPECT_FALSE(decodeProgress(json.dump())) << test.key << ": " << test.value;
    }
    for (const char* text : {"", "[]", "null", "{", "{}"})
        EXPECT_FALSE(decodeProgress(text)) << text;
}

TEST(Progress, AcceptsEquivalentForms) {
    Json json = Json::parse(kJson);
    json["lastDay"] = nullptr;
    json["extensions"] = {"ü", "jpg", "jpg"};
    json["future"] = true;
    auto expected = fullRecord();
    expected.lastDay.reset();
    EXPECT_EQ(decodeProgress(json.dump()), expected);
}

} // namespace
} // namespace vexmoor::test
