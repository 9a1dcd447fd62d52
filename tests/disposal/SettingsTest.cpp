#include "disposal/Settings.h"

#include "support/InMemoryDefaults.h"

#include <gmock/gmock.h>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;

TEST(Settings, DefaultToBinWithAllSwitchesOn) {
    using Value = UserDefaults::Value;
    const struct {
        const char* what;
        std::optional<Value> mode;
        std::optional<Value> flag;
        DisposeMode expectedMode;
        bool expectedFlag;
    } cases[] = {
        {"fresh", {}, {}, DisposeMode::bin, true},
        {"stored", "dissolve", false, DisposeMode::dissolve, false},
        {"other letter case", "Dissolve", true, DisposeMode::bin, true},
        {"unknown word", "shred", std::int64_t{0}, DisposeMode::bin, true},
        {"other kinds", UserDefaults::Data{"dissolve"}, "no", DisposeMode::bin, true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        InMemoryDefaults defaults;
        defaults.assign("settings.mode", test.mode);
        for (const auto& toggle : Settings::switches())
            defaults.assign(std::string("settings.") + toggle.name, test.flag);
        Settings settings(defaults);
        EXPECT_EQ(settings.mode.get(), test.expectedMode);
        for (const auto& toggle : Settings::switches())
            EXPECT_EQ((settings.*toggle.setting).get(), test.expectedFlag) << toggle.name;
    }
}

TEST(Settings, AreStoredBeforeSubscribersAreNotified) {
    InMemoryDefaults defaults;
    Settings settings(defaults);
    std::vector<bool> seen;
    const auto subscription = settings.sound.subscribe([&](bool on) {
        seen.push_back(on);
        EXPECT_EQ(defaults.boolean("settings.sound").value_or(true), on);
    });
    settings.sound.set(false);
    settings.mode.set(DisposeMode::dissolve);
    EXPECT_THAT(seen, ElementsAre(true, false));
    EXPECT_EQ(defaults.stored(),
              (InMemoryDefaults::Values{{"settings.mode", "dissolve"}, {"settings.sound", false}}));
    EXPECT_EQ(defaults.commits(), 2);

    Settings afterRestart(defaults);
    EXPECT_EQ(afterRestart.mode.get(), DisposeMode::dissolve);
    for (const auto& toggle : Settings::switches())
        EXPECT_EQ((afterRestart.*toggle.setting).get(), std::string_view(toggle.name) != "sound")
            << toggle.name;
}

} // namespace
} // namespace vexmoor::test
