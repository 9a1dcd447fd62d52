#include "DesktopTest.h"
#include "FileManagerWindow.h"

#include <QImage>

#include <algorithm>

namespace vexmoor {
namespace {

using namespace test;

/// The stats window at the right edge of the screen.
struct HistoryTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped())
            return;
        openSession();
        start({});
        ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
        const std::string id = std::to_string(cauldron->statsWindow()->id);
        session->xdotool("windowmove --sync " + id + " 860 0 windowactivate --sync " + id);
    }

    /// Waits for a visible element whose name begins with the text.
    [[nodiscard]] std::optional<AccessibleElement> element(const std::string& beginning) const {
        const auto found = cauldron->element(beginning);
        EXPECT_TRUE(found) << beginning;
        return found;
    }
    [[nodiscard]] bool shows(const std::string& beginning) const {
        return element(beginning).has_value();
    }

    const Path bin = ".local/share/Trash/files";
};

TEST_F(HistoryTest, ListsFedItemsAtOnceAndPutsBackAndDeletesByKeyboard) {
    EXPECT_TRUE(shows("Nothing has been sacrificed yet."));
    const Path notes = session->write("notes.txt", "Eye of newt\n");
    ASSERT_EQ(cauldron->feed({notes}), 0);
    ASSERT_TRUE(shows("notes.txt, In the Bin · "));
    EXPECT_EQ(element("notes.txt, ")->role, "list item");
    EXPECT_TRUE(shows("1 sacrifice"));
    EXPECT_TRUE(shows("Today · 1 item · "));
    EXPECT_TRUE(shows("Test the flames"));

    session->press("Return");
    EXPECT_TRUE(shows("notes.txt, Put back · "));
    EXPECT_EQ(contents(notes), "Eye of newt\n");

    const Path other = session->write("other.txt", "Toe of frog\n");
    ASSERT_EQ(cauldron->feed({other}), 0);
    ASSERT_TRUE(shows("other.txt, In the Bin · "));
    session->screen().keepPicture("history");
    session->press("Home Delete");
    ASSERT_TRUE(cauldron->alerts("Are you sure you want to delete “other.txt” immediately?"));
    session->press("Return");
    EXPECT_TRUE(shows("other.txt, Deleted immediately · "));
    EXPECT_TRUE(std::filesystem::is_empty(session->home() / bin));
}

TEST_F(HistoryTest, TestsTheFlamesAndOpensTheSettingsByItsButtons) {
    session->run({VEXMOOR_PROGRAM, "settings", "mode", "dissolve"});
    session->run({VEXMOOR_PROGRAM, "settings", "confirmDissolve", "off"});
    session->xdotool("windowmove --sync " + std::to_string(cauldron->statsWindow()->id) + " 100 0");
    ASSERT_EQ(cauldron->feed({session->write("notes.txt", "Eye of newt\n")}), 0);
    ASSERT_TRUE(shows("notes.txt, Deleted immediately · "));
    ASSERT_TRUE(eventually([&] { return cauldron->flames().has_value(); }));
    ASSERT_TRUE(eventually([&] { return !cauldron->flames(); }));
    session->click(element("Test the flames").value().place.center());
    EXPECT_TRUE(eventually([&] { return cauldron->flames().has_value(); }));
    EXPECT_EQ(cauldron->history().size(), 1U);

    session->click(element("Dissolving forever").value().place.center());
    ASSERT_TRUE(shows("Dissolve forever")) << "the settings tab is shown";
    session->click(element("Dissolve forever").value().place.center());
    EXPECT_TRUE(eventually([&] { return cauldron->setting("mode") == "bin"; }));
}

TEST_F(HistoryTest, ShowsThumbnailsOfPictures) {
    constexpr QRgb kMagenta = qRgb(255, 0, 255);
    const Path file = session->write("picture.png", "");
    QImage image(256, 256, QImage::Format_RGB32);
    image.fill(kMagenta);
    ASSERT_TRUE(image.save(QString::fromStdString(file), "png"));
    ASSERT_EQ(cauldron->feed({file}), 0);
    const auto row = element("picture.png, In the Bin · ");
    ASSERT_TRUE(row);
    EXPECT_TRUE(eventually(
        [&] { return countOf(session->screen().picture().copy(row->place), {kMagenta}) > 200; }));
    session->screen().keepPicture("history-preview");
}

TEST_F(HistoryTest, FindsOlderItemsByName) {
    ASSERT_EQ(cauldron->feed({session->write("oldest.txt", "x")}), 0);
    ASSERT_TRUE(cauldron->records(1));
    std::vector<Path> items;
    for (int i = 0; i < 40; ++i)
        items.push_back(session->write("item " + std::to_string(i), "x"));
    ASSERT_EQ(cauldron->feed(items), 0);
    ASSERT_TRUE(shows("item 39, In the Bin · "));
    session->press("ctrl+f");
    session->xdotool("type oldest");
    EXPECT_TRUE(shows("oldest.txt, In the Bin · "));
    session->press("Escape");
    EXPECT_TRUE(shows("item 39, In the Bin · "));
}

TEST_F(HistoryTest, AcceptsDropsAndOffersCopiesOfBinnedItems) {
    session->write("Things/notes.txt", "Eye of newt\n");
    FileManagerWindow manager(*session, DrivenFileManager::kThunar, session->home() / "Things");
    ASSERT_TRUE(manager.selectAll(1));
    ASSERT_TRUE(manager.dragSelection(cauldron->statsWindow()->frame.center()));
    EXPECT_TRUE(isGone(session->home() / "Things/notes.txt"));
    const auto row = element("notes.txt, In the Bin · ");
    ASSERT_TRUE(row);
    session->drag(row->place.center() - QPoint(60, 0), manager.middle());
    EXPECT_TRUE(eventually([&] {
        return treeOf(session->home() / "Things") == Tree{{"notes.txt", "Eye of newt\n"}};
    }));
    EXPECT_EQ(contents(session->home() / bin / "notes.txt"), "Eye of newt\n");
    EXPECT_TRUE(shows("notes.txt, In the Bin · ")) << "copying does not change the history";
}

} // namespace
} // namespace vexmoor
