#include "DesktopTest.h"
#include "FileManagerWindow.h"

#include "sound/SizzleRenderer.h"

namespace vexmoor {
namespace {

using namespace test;
using testing::MatchesRegex;

struct DropTest : DesktopTest {
    /// Drags all items of the folder onto the tile.
    void drag(const DrivenFileManager& kind, const std::string& folder, std::size_t count) {
        manager = std::make_unique<FileManagerWindow>(*session, kind, folder);
        ASSERT_TRUE(manager->selectAll(count));
        ASSERT_TRUE(manager->dragSelection(cauldron->middle()));
    }
    [[nodiscard]] bool sizzleIsHeard() const {
        const Samples sizzle = samplesOf(SizzleRenderer::render(), 0.6);
        return eventually(
            [&] { return beginning(session->sound().recorded(), sizzle).has_value(); });
    }
    void keepPictureOfTile(const std::string& name) const {
        const QRect tile = cauldron->tile().value().frame;
        session->screen().keepPicture(name, tile.adjusted(-200, -200, 60, 0));
    }

    const Path things = "Things";
    std::unique_ptr<FileManagerWindow> manager;
};

struct DropCase {
    const char* name;
    const DrivenFileManager& manager;
    bool compositor;
    bool byKey; ///< put back by Ctrl+Z in the program's window, otherwise by the action of its
                ///< desktop entry

    friend void PrintTo(const DropCase& drop, std::ostream* out) { *out << drop.name; }
};

struct FileManagerDropTest : DropTest, testing::WithParamInterface<DropCase> {
    void putBack() const {
        if (!GetParam().byKey) {
            cauldron->putBack();
            return;
        }
        session->click(cauldron->middle());
        ASSERT_TRUE(eventually([&] {
            const auto window = cauldron->statsWindow();
            const auto active = session->screen().active();
            return window && active && active->id == window->id;
        }));
        session->press("ctrl+z");
    }
    void expectInTheBin(const nlohmann::json& sacrifice) const {
        const Path trashed = sacrifice.at("trashed").get<std::string>();
        const Path bin = session->home() / ".local/share/Trash";
        EXPECT_EQ(trashed.parent_path(), bin / "files");
        EXPECT_TRUE(std::filesystem::exists(trashed)) << trashed;
        const std::string info =
            contents(bin / "info" / (trashed.filename().string() + ".trashinfo"));
        EXPECT_THAT(info, MatchesRegex("\\[Trash Info\\]\nPath=[^\n]*\n"
                                       "DeletionDate=....-..-..T..:..:..\n"));
        const auto path = info.find("Path=") + 5;
        const auto encoded =
            QByteArray::fromStdString(info.substr(path, info.find('\n', path) - path));
        EXPECT_EQ(QByteArray::fromPercentEncoding(encoded).toStdString(),
                  sacrifice.at("original").get<std::string>());
    }
};

TEST_P(FileManagerDropTest, BurnsItemsIntoTheBinAndPutsThemBackByteForByte) {
    openSession({.compositor = GetParam().compositor});
    session->write(things / "notes.txt", "Eye of newt\n");
    session->write(things / "ünïcode & 100%25 +.bin", std::string("\0\xff\n\r[x]", 7));
    session->write(things / "folder/deep/inside.txt", std::string(70000, 'x'));
    const Tree before = treeOf(session->home() / things);
    start();
    ASSERT_TRUE(session->sound().recordsAnother(0.1));
    drag(GetParam().manager, session->home() / things, 3);

    EXPECT_TRUE(cauldron->burns());
    session->screen().keepPicture(std::string("drop-") + GetParam().name);
    ASSERT_TRUE(cauldron->records(3));
    EXPECT_TRUE(std::filesystem::is_empty(session->home() / things));
    for (const auto& sacrifice : cauldron->history())
        expectInTheBin(sacrifice);
    EXPECT_TRUE(sizzleIsHeard());

    putBack();
    EXPECT_TRUE(cauldron->records(3, "restored"));
    EXPECT_EQ(treeOf(session->home() / things), before);
    EXPECT_THAT(session->notifications(),
                testing::Contains(testing::StartsWith("Achievement: First Offering")));
}

INSTANTIATE_TEST_SUITE_P(
    , FileManagerDropTest,
    testing::Values(DropCase{"thunar", DrivenFileManager::kThunar, false, true},
                    DropCase{"pcmanfm-qt", DrivenFileManager::kPcmanfmQt, true, false}),
    [](const auto& drop) { return std::string(drop.param.compositor ? "PcmanfmQt" : "Thunar"); });

TEST_F(DropTest, ShowsASwarmAndPutsBackTheWholeBatchAtAnySize) {
    constexpr std::size_t kMany = 500;
    openSession();
    for (std::size_t i = 0; i < kMany; ++i)
        session->write(things / ("item " + std::to_string(i)), std::to_string(i));
    const Tree before = treeOf(session->home() / things);
    start();
    drag(DrivenFileManager::kThunar, session->home() / things, kMany);
    EXPECT_TRUE(eventually([&] {
        const auto flames = cauldron->flames();
        return flames && flames->frame.width() > cauldron->tile().value().frame.width();
    })) << "a swarm is wider than the tile";
    EXPECT_TRUE(cauldron->burns());
    keepPictureOfTile("swarm");
    EXPECT_TRUE(eventually([&] { return treeOf(session->home() / things).empty(); }));
    ASSERT_TRUE(cauldron->records(40)) << "the history's maximum";
    cauldron->putBack();
    EXPECT_TRUE(eventually([&] { return treeOf(session->home() / things) == before; }));
}

TEST_F(DropTest, RejectsItemsThatAreNotLocalWithAMessage) {
    openSession();
    session->write("notes.txt", "in the Bin already");
    start();
    ASSERT_EQ(cauldron->feed({session->home() / "notes.txt"}), 0);
    ASSERT_TRUE(cauldron->records(1));
    drag(DrivenFileManager::kThunar, "trash:///", 1);
    EXPECT_TRUE(cauldron->alerts("It takes only files and folders that are on this computer."));
    session->screen().keepPicture("refused");
    session->press("Return");
    EXPECT_TRUE(eventually([&] { return !cauldron->isAlerting(); }));
    EXPECT_TRUE(std::filesystem::exists(session->home() / ".local/share/Trash/files/notes.txt"));
}

} // namespace
} // namespace vexmoor
