#include "intake/NamedSettings.h"

#include "support/FakeClock.h"
#include "support/InMemoryDefaults.h"

#include <gtest/gtest.h>

namespace vexmoor::test {

namespace {

class NamedSettingsTest : public testing::Test, NotificationPort {
  protected:
    using Complaint = NamedSettings::Complaint;

    void requestAuthorization(std::function<void(bool)> completion) override { completion(false); }
    void post(const Notification&) override {}

    InMemoryDefaults m_defaults;
    Settings m_settings{m_defaults};
    Progression m_progression{m_defaults, nullptr, [] { return utc("2024-03-31 12:00:00"); }, *this,
                              [](const Skin&) {}};
    NamedSettings m_named{m_settings, m_progression};
};

TEST_F(NamedSettingsTest, AssignsEachSettingByName) {
    EXPECT_EQ(m_named.assign("mode", "dissolve"), std::nullopt);
    EXPECT_EQ(m_settings.mode.get(), DisposeMode::dissolve);
    for (const auto& [name, setting] : Settings::switches())
        for (const auto& [text, value] :
             {std::pair("off", false), {"on", true}, {"no", false}, {"1", true}}) {
            EXPECT_EQ(m_named.assign(name, text), std::nullopt);
            EXPECT_EQ((m_settings.*setting).get(), value) << name << text;
        }
    m_progression.unlockAll();
    EXPECT_EQ(m_named.assign("skin", "void"), std::nullopt);
    EXPECT_EQ(m_progression.progress().skin, "void");
}

TEST_F(NamedSettingsTest, RejectsInvalidValuesWithoutChanges) {
    const auto before = m_defaults.stored();
    const struct {
        const char* name;
        const char* text;
        Complaint complaint;
    } cases[] = {
        {"mode", "", {Complaint::Kind::usage, "mode can be: bin, dissolve."}},
        {"sound", "ON", {Complaint::Kind::usage, "sound can be: on, off."}},
        {"skin", "tin", {Complaint::Kind::usage, "skin can be: iron."}},
        {"skin", "gold", {Complaint::Kind::refused, "The Gold cauldron is still locked."}},
        {"Sound",
         "on",
         {Complaint::Kind::usage, "A setting's name can be: mode, confirmDissolve, sound, "
                                  "escapeDock, captureFinderDelete, showMenuBarIcon, skin."}},
    };
    for (const auto& [name, text, complaint] : cases) {
        const auto told = m_named.assign(name, text);
        ASSERT_TRUE(told) << name << text;
        EXPECT_EQ(told->sentence, complaint.sentence);
        EXPECT_EQ(told->kind, complaint.kind);
    }
    EXPECT_EQ(m_defaults.stored(), before);
}

} // namespace

} // namespace vexmoor::test
