#include "integration/DolphinShortcuts.h"
#include "integration/LineAccelerators.h"
#include "integration/NemoActionsTree.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using Status = AcceleratorStatus;

const ScriptAccelerators kScripts("Feed to Vexmoor");
const AcceleratorMap kMap("<Actions>/a\\s\"b\"");
const NemoActionsTree kTree("vexmoor-feed.nemo_action");
const DolphinShortcuts kShortcuts;
const DolphinProfile kProfile;

const std::string kScriptLine = "<Control>BackSpace Feed to Vexmoor\n";
const std::string kMapLine = R"((gtk_accel_path "<Actions>/a\\s\"b\"" "<Primary>BackSpace"))"
                             "\n";
const std::string kTreeEntry =
    R"({"uuid": "vexmoor-feed.nemo_action", "type": "action", "user-label": null, )"
    R"("user-icon": null, "accelerator": "<Primary>BackSpace"})";
const std::string kOwnAction =
    R"(<Action name="servicemenu_vexmoor-feed.desktop::feedToVexmoor" shortcut="Ctrl+Backspace"/>)";
const std::string kProperties =
    " <ActionProperties scheme=\"Default\">\n  " + kOwnAction + "\n </ActionProperties>\n";
const std::string kMark = "# Written by \"vexmoor integrate\", which removes it.\n";

TEST(AcceleratorText, AddsAndRemovesOnlyItsBinding) {
    const struct {
        const AcceleratorText& text;
        std::string before;
        std::string after;
    } cases[] = {
        {kScripts, "", kScriptLine},
        {kScripts, "F4 Other\nno break", kScriptLine + "F4 Other\nno break"},
        {kScripts, "\n\nF4 B\r\n", kScriptLine + "\n\nF4 B\r\n"},
        {kMap, "", kMapLine},
        {kMap,
         "; head\n; (gtk_accel_path \"x\" \"<Primary>BackSpace\")\n(gtk_accel_path \"y\" \"\")",
         kMapLine + "; head\n; (gtk_accel_path \"x\" \"<Primary>BackSpace\")\n(gtk_accel_path "
                    "\"y\" \"\")"},
        {kTree, "{\"toplevel\": []}\n", "{\"toplevel\": [" + kTreeEntry + "]}\n"},
        {kTree, R"({"a]": "toplevel", "toplevel" :[ {"uuid":"]\"" ,"children":[]}], "z": 1})",
         R"({"a]": "toplevel", "toplevel" :[ {"uuid":"]\"" ,"children":[]}, )" + kTreeEntry +
             R"(], "z": 1})"},
        {kShortcuts, kShortcuts.blank(),
         "<gui name=\"dolphin\" version=\"1\">\n" + kProperties + "</gui>\n"},
        {kShortcuts, "<!DOCTYPE gui><gui name=\"dolphin\"/>",
         "<!DOCTYPE gui><gui name=\"dolphin\">" + kProperties + "</gui>"},
        {kShortcuts,
         "<gui name=\"dolphin\"><ActionProperties scheme=\"Default\"><Action name=\"a\" "
         "shortcut=\"F1; Ctrl+B\"/></ActionProperties></gui>",
         "<gui name=\"dolphin\"><ActionProperties scheme=\"Default\">\n  " + kOwnAction +
             "<Action name=\"a\" shortcut=\"F1; Ctrl+B\"/></ActionProperties></gui>"},
        {kShortcuts, "<gui name='dolphin'><ActionProperties/><!-- > --></gui>",
         "<gui name='dolphin'><ActionProperties>" + kOwnAction +
             "</ActionProperties><!-- > --></gui>"},
        {kProfile, "", kMark + "[General]\nVersion=202\n"},
        {kProfile, "[A]\nVersion=1\n[General]\nX=1",
         "[A]\nVersion=1\n[General]\n" + kMark + "Version=202\nX=1"},
        {kProfile, "k=" + kMark + "Version=202\n",
         "k=" + kMark + "Version=202\n" + kMark + "[General]\nVersion=202\n"},
        {kProfile, "k=v\n[A]\n", "k=v\n" + kMark + "[General]\nVersion=202\n[A]\n"},
    };
    for (const auto& [text, before, after] : cases) {
        EXPECT_EQ(text.status(before), Status::notInstalled) << before;
        EXPECT_EQ(text.without(before), before);
        EXPECT_EQ(text.with(before), after);
        EXPECT_EQ(text.status(after), Status::installed) << after;
        EXPECT_EQ(text.without(after), before);
    }
}

TEST(AcceleratorText, RecognisesTheUsersKeys) {
    const auto tree = [](const std::string& item) { return "{\"toplevel\":[" + item + "]}"; };
    const auto gui = [](const std::string& action) {
        return "<gui name=\"dolphin\"><ActionProperties>" + action + "</ActionProperties></gui>";
    };
    const std::string uuid = R"("uuid":"vexmoor-feed.nemo_action")";
    const struct {
        const AcceleratorText& text;
        std::string content;
        std::optional<Status> status;
    } cases[] = {
        {kScripts, "<Primary>backspace Feed to Vexmoor", Status::installed},
        {kScripts, "<Ctrl>BackSpace Other", Status::taken},
        {kScripts, kScriptLine + "<control>BackSpace Other", Status::taken},
        {kScripts, "<Control><Shift>BackSpace Other", Status::notInstalled},
        {kScripts, "F4 Feed to Vexmoor\n<Control>BackSpace Other", Status::otherKey},
        {kScripts, std::string("a\0b", 3), std::nullopt},
        {kScripts, "\xFF\xFE junk", std::nullopt},
        {kMap, R"( (gtk_accel_path  "<Actions>/a\\s\"b\"" "" ) )", Status::otherKey},
        {kMap, R"((gtk_accel_path "<Actions>/c" "<PRIMARY>BackSpace"))", Status::taken},
        {kMap, R"((gtk_accel_path "<Actions>/c" "<Primary>BackSpace)", Status::notInstalled},
        {kTree, tree(R"({"children":[{"accelerator":"<Primary>BackSpace"}]})"), Status::taken},
        {kTree, tree("{" + uuid + R"(,"accelerator":"F4"})"), Status::otherKey},
        {kTree, tree("{" + uuid + R"(,"accelerator":null})"), Status::notInstalled},
        {kTree, "{\"toplevel\":{}}", std::nullopt},
        {kTree, "[]", std::nullopt},
        {kTree, "{\"toplevel\":[", std::nullopt},
        {kTree, "{\"toplevel\":" + std::string(200000, '[') + std::string(200000, ']') + "}",
         std::nullopt},
        {kShortcuts, gui(R"(<Action name="a" shortcut="F4; ctrl+backspace"/>)"), Status::taken},
        {kShortcuts,
         gui(R"(<Action shortcut="" name="servicemenu_vexmoor-feed.desktop::feedToVexmoor"/>)"),
         Status::otherKey},
        {kShortcuts, "<gui name=\"konsole\"/>", std::nullopt},
        {kShortcuts, "<gui name=\"dolphin\">", std::nullopt},
        {kShortcuts, "", std::nullopt},
        {kProfile, "[General]\nVersion=200\n", Status::installed},
    };
    for (const auto& [text, content, status] : cases)
        EXPECT_EQ(text.status(content), status) << content.substr(0, 200);
}

TEST(AcceleratorText, RemovesItsBindingFromARewrittenFile) {
    const std::string rewritten = "{\"toplevel\":[{\"uuid\":\"vexmoor-feed.nemo_action\","
                                  "\"accelerator\":\"<Primary>BackSpace\",\"b\":1,\"a\":2}]}";
    EXPECT_EQ(kTree.without(rewritten), R"({
    "toplevel": [
        {
            "uuid": "vexmoor-feed.nemo_action",
            "accelerator": null,
            "b": 1,
            "a": 2
        }
    ]
})");
    EXPECT_EQ(kTree.with(kTree.without(rewritten)), kTree.with(rewritten));
    EXPECT_EQ(kMap.without("; map\n(gtk_accel_path \"<Actions>/a\\\\s\\\"b\\\"\" "
                           "\"<Primary>BackSpace\")\n; end"),
              "; map\n; end");
    EXPECT_EQ(kShortcuts.without("<gui name=\"dolphin\"><ActionProperties>\n   <Action shortcut="
                                 "\"Ctrl+Backspace\" name=\"servicemenu_vexmoor-feed.desktop::"
                                 "feedToVexmoor\" />\n</ActionProperties></gui>"),
              "<gui name=\"dolphin\"><ActionProperties>\n</ActionProperties></gui>");
    EXPECT_EQ(kProfile.without("[General]\nVersion=202\nX=1\n"), "[General]\nVersion=202\nX=1\n")
        << "Dolphin has adopted it";
}

TEST(AcceleratorMap, EscapesThePathOfANemoScriptAsNemoDoes) {
    EXPECT_EQ(
        AcceleratorMap::pathOfNemoScript("/home/me/.local/share/nemo/scripts/Feed to Vexmoor"),
        "<Actions>/ScriptsGroup/"
        "script_file:\\s\\s\\shome\\sme\\s.local\\sshare\\snemo\\sscripts\\sFeed%20to%20Vexmoor");
    EXPECT_EQ(AcceleratorMap::pathOfNemoScript("/a&b(\xC3\xA9)"),
              "<Actions>/ScriptsGroup/script_file:\\s\\s\\sa\\ab(%C3%A9)");
}

} // namespace
} // namespace vexmoor
