#include "CliTest.h"

#include "cli/SettingDescription.h"
#include "intake/NamedSettings.h"

namespace vexmoor::test {
namespace {

using testing::HasSubstr;

class SettingsCommandTest : public CliTest {};

TEST_F(SettingsCommandTest, ListsReadsAndSets) {
    EXPECT_EQ(json({"settings", "--json"}), (Json{{"mode", "bin"},
                                                  {"confirmDissolve", true},
                                                  {"sound", true},
                                                  {"escapeDock", true},
                                                  {"captureFinderDelete", true},
                                                  {"showMenuBarIcon", true},
                                                  {"skin", "iron"}}));
    EXPECT_EQ(run({"settings", "mode", "dissolve"}).status, 0);
    EXPECT_EQ(run({"settings", "mode"}).output, "dissolve\n");
    for (const auto& [value, shown] : {std::pair("off", "off"),
                                       {"true", "on"},
                                       {"no", "off"},
                                       {"1", "on"},
                                       {"false", "off"},
                                       {"yes", "on"},
                                       {"0", "off"}}) {
        EXPECT_EQ(run({"settings", "sound", value}).status, 0) << value;
        EXPECT_EQ(run({"settings", "sound"}).output, std::string(shown) + "\n") << value;
    }
    EXPECT_EQ(json({"settings", "sound", "--json"}), (Json{{"sound", false}}));
    EXPECT_EQ(json({"settings", "sound", "on", "--json"}), (Json{{"sound", true}}));
    EXPECT_THAT(run({"settings"}).output, HasSubstr("mode = dissolve\n"));
}

TEST_F(SettingsCommandTest, RejectsInvalidValues) {
    const auto before = json({"settings", "--json"});
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* error;
    } cases[] = {
        {{"settings", "volume", "11"}, 2, "volume is no setting."},
        {{"settings", "mode", "burn"},
         2,
         "mode can be: bin, dissolve.\nTry 'vexmoor settings --help'."},
        {{"settings", "sound", "ON"}, 2, "sound can be: on, off. Did you mean on?"},
        {{"settings", "sound", ""}, 2, "empty"},
        {{"settings", "skin", "tin"}, 2, "skin can be: iron."},
        {{"settings", "skin", settingDescriptions().back().values.back()}, 3, "locked"},
    };
    for (const auto& [arguments, status, error] : cases) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(arguments);
        EXPECT_THAT(result.errors, HasSubstr(error));
    }
    EXPECT_EQ(json({"settings", "--json"}), before);
}

/// The completions and the manual use the descriptions, so each described value must be accepted.
TEST_F(SettingsCommandTest, AcceptsEveryDescribedValue) {
    std::vector<std::string> names;
    const Json document = json({"settings", "--json"});
    for (const auto& [name, value] : document.items())
        names.push_back(name);
    EXPECT_EQ(NamedSettings::names(), names);
    std::vector<std::string> described;
    for (const auto& setting : settingDescriptions())
        described.push_back(setting.name);
    EXPECT_EQ(described, names);
    for (const auto& setting : settingDescriptions())
        for (const auto& value : setting.values) {
            const int status = run({"settings", setting.name, value}).status;
            EXPECT_EQ(status, setting.name == "skin" && value != "iron" ? 3 : 0)
                << setting.name << " " << value;
        }
}

} // namespace
} // namespace vexmoor::test
