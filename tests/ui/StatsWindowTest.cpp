#include "WindowFixture.h"

#include "ui/Accent.h"
#include "ui/AccentButton.h"
#include "ui/CauldronView.h"
#include "ui/DissolveBadge.h"
#include "ui/HistoryList.h"
#include "ui/HistoryRow.h"
#include "ui/SegmentedBar.h"
#include "ui/StatsWindow.h"
#include "ui/WeekChart.h"

#include "support/MainLoop.h"

#include <QAccessible>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct StatsWindowTest : WindowFixture {
    StatsWindowTest() {
        QObject::connect(&view, &StatsView::restoreRequested, note("restore"));
        QObject::connect(&view, &StatsView::deleteRequested, note("delete"));
        QObject::connect(&view, &StatsView::testFlamesRequested, [this] { log << "test"; });
    }

    std::function<void(const std::vector<Sacrifice>&)> note(const QString& what) {
        return [this, what](const std::vector<Sacrifice>& items) {
            QString line = what;
            for (const Sacrifice& item : items)
                line += ' ' + QString::fromStdString(item.name);
            log << line;
        };
    }

    /// Feeds files of these names to the Bin; the last one is the newest.
    void feedFiles(const std::vector<std::string>& names) {
        std::vector<Sacrifice> items;
        for (const auto& name : names)
            items.push_back(fileNamed(name));
        ledger.record(items);
    }
    [[nodiscard]] Sacrifice fileNamed(const std::string& name) const {
        Sacrifice item;
        item.id = Uuid::generate();
        item.name = name;
        item.bytes = 1000;
        item.date = clock.now;
        item.original = StoredPath("/home/me/" + name);
        item.trashed = StoredPath("/bin/files/" + name);
        return item;
    }
    [[nodiscard]] Uuid idOf(std::size_t row) const { return ledger.recent.get()[row].id; }

    void show() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(eventuallyInLoop([this] { return window.isActiveWindow(); }));
    }
    void type(const char* keys) {
        const QKeySequence sequence(keys);
        for (int i = 0; i < sequence.count(); ++i) {
            const auto combination = sequence[static_cast<uint>(i)];
            QWidget* const target =
                QApplication::focusWidget() ? QApplication::focusWidget() : &window;
            for (const auto kind : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
                QKeyEvent event(kind, combination.key(), combination.keyboardModifiers());
                QCoreApplication::sendEvent(target, &event);
            }
        }
    }
    [[nodiscard]] QStringList buttons() const {
        QStringList titles;
        for (const auto* const button : window.findChildren<AccentButton*>())
            if (button->isVisible())
                titles << button->text();
        return titles;
    }
    [[nodiscard]] QStringList rows() const {
        QStringList names;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            names << list.model()->index(row, 0).data().toString();
        return names;
    }
    [[nodiscard]] int running() const {
        return static_cast<int>(std::ranges::count_if(
            timers, [](const ManualTimer* timer) { return timer->fire != nullptr; }));
    }

    std::vector<Sacrifice> older; ///< in the Bin but not among the recent ones
    Permissions permissions;
    QStringList log; ///< the window's requests
    StatsWindow window{{ledger,
                        settings,
                        progression,
                        clock.clock(),
                        makeTimer(),
                        [this] { return permissions; },
                        {},
                        [this](const auto& matches, std::size_t) {
                            auto found = older;
                            std::erase_if(found, [&](const auto& i) { return !matches(i.name); });
                            return found;
                        }}};
    StatsView& view = window.view();
    HistoryList& list = *window.findChild<HistoryList*>();
};

TEST_F(StatsWindowTest, FollowsTheStoresWhileVisibleAndUpdatesWhenShown) {
    const auto& chart = *window.findChild<WeekChart*>();
    feedFiles({"a"});
    EXPECT_EQ(chart.caption(), "") << "a hidden window does not update";
    show();
    EXPECT_EQ(chart.caption(), "Today · 1 item · 1 KB");
    EXPECT_EQ(rows(), QStringList({"a"}));
    feedFiles({"b", "c"});
    EXPECT_EQ(chart.caption(), "Today · 3 items · 3 KB");
    EXPECT_EQ(rows(), QStringList({"c", "b", "a"}));
    auto& badge = *window.findChild<DissolveBadge*>();
    EXPECT_FALSE(badge.isVisible());
    const QRect place(list.mapTo(&window, QPoint()), list.size());
    settings.mode.set(DisposeMode::dissolve);
    QCoreApplication::processEvents();
    EXPECT_TRUE(badge.isVisible());
    EXPECT_EQ(QRect(list.mapTo(&window, QPoint()), list.size()), place) << "the list must not move";
    badge.click();
    EXPECT_EQ(view.tab(), StatsView::Tab::settings);
    clock.now = utc("2026-11-23 00:00:01");
    for (ManualTimer* const timer : timers)
        timer->fire();
    EXPECT_EQ(chart.caption(), "Today · nothing fed");
    EXPECT_TRUE(
        list.model()->index(0, 0).data(HistoryModel::statusRole).toString().endsWith("yesterday"));
}

TEST_F(StatsWindowTest, StopsItsTimersWhileHiddenAndReopensOnTheHistory) {
    feedFiles({"a", "b"});
    EXPECT_EQ(running(), 0);
    show();
    EXPECT_EQ(running(), static_cast<int>(timers.size()));
    type("Ctrl+A");
    type("Ctrl+F");
    view.setTab(StatsView::Tab::skins);
    window.hide();
    EXPECT_EQ(running(), 0);
    window.show();
    EXPECT_EQ(view.tab(), StatsView::Tab::history);
    EXPECT_THAT(list.picked(), IsEmpty());
    EXPECT_FALSE(window.findChild<QLineEdit*>()->isVisible());
}

TEST_F(StatsWindowTest, PutsBackAndDeletesByKeyboard) {
    feedFiles({"a", "b", "c"});
    show();
    ASSERT_TRUE(list.hasFocus());
    type("Return");
    EXPECT_EQ(log, QStringList("restore c")) << "the focused row";
    log.clear();
    type("Down, Shift+Down");
    EXPECT_EQ(buttons(), QStringList({"Restore 2 Files", "Delete 2 Files…", "Test the flames"}));
    type("Delete");
    type("Return");
    EXPECT_EQ(log, QStringList({"delete b a", "restore b a"}));
    log.clear();
    ledger.mark({idOf(1)}, {}, {});
    EXPECT_EQ(buttons(), QStringList({"Restore File", "Delete File…", "Test the flames"}));
    type("Ctrl+A");
    type("Delete");
    EXPECT_EQ(log, QStringList("delete c a"));
    type("Escape");
    EXPECT_EQ(buttons(), QStringList("Test the flames"));
    for (auto* const button : window.findChildren<AccentButton*>())
        button->click();
    EXPECT_EQ(log.last(), "test");
}

TEST_F(StatsWindowTest, ReturnsRestorableItemsInListOrder) {
    feedFiles({"a", "b", "c", "d"});
    show();
    ledger.mark({}, {idOf(1)}, {});
    const std::set<Uuid> picked{idOf(3), idOf(1), idOf(0), Uuid::generate()};
    std::string names;
    for (const Sacrifice& item : view.restorable(picked))
        names += item.name;
    EXPECT_EQ(names, "da");
    EXPECT_EQ(view.deleteNow(picked), view.restorable(picked));
}

TEST_F(StatsWindowTest, PutsBackByTheButtonOfARowAndByItsAccessibleAction) {
    feedFiles({"a", "b"});
    ledger.mark({}, {idOf(1)}, {});
    show();
    const auto clickButton = [this](int row) {
        const QRect place = list.visualRect(list.model()->index(row, 0));
        click(*list.viewport(),
              HistoryRow::of(place, list.font(), Qt::LeftToRight, true).button.center());
    };
    clickButton(0);
    EXPECT_EQ(log, QStringList("restore b"));
    EXPECT_THAT(list.picked(), IsEmpty()) << "pressing the button must not select";
    clickButton(1);
    EXPECT_EQ(log.size(), 1) << "the row has no button";

    auto* const face = QAccessible::queryAccessibleInterface(&list);
    EXPECT_EQ(face->role(), QAccessible::List);
    ASSERT_EQ(face->childCount(), 2);
    auto* const row = face->child(0);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_TRUE(row->text(QAccessible::Name).startsWith("b, In the Bin · 1 KB · "));
    EXPECT_EQ(row->text(QAccessible::Description), "Restore to me");
    EXPECT_EQ(row->actionInterface()->actionNames().size(), 3);
    EXPECT_EQ(face->child(1)->actionInterface()->actionNames().size(), 2);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(log, QStringList({"restore b", "restore b"}));
    row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(row->state().selected);
    EXPECT_EQ(face->indexOfChild(row), 0);
    feedFiles({"c"});
    EXPECT_EQ(face->indexOfChild(row), 1) << "the accessible row must follow its item";
    feedFiles(std::vector<std::string>(Ledger::kMaxRecent, "x"));
    EXPECT_FALSE(row->isValid());
    EXPECT_EQ(row->text(QAccessible::Name), "");
}

TEST_F(StatsWindowTest, FilterIncludesOlderItems) {
    feedFiles({"Notes.txt", "image.png"});
    older = {fileNamed("old NOTES"), fileNamed("other"), ledger.recent.get()[1]};
    older[0].date.secondsSinceReference -= 1e6;
    show();
    type("Ctrl+F");
    auto& field = *window.findChild<QLineEdit*>();
    ASSERT_TRUE(field.hasFocus());
    field.setText("nOtes");
    ASSERT_TRUE(eventuallyInLoop([this] { return rows().size() == 2 && rows()[1][0] == 'o'; }));
    EXPECT_EQ(rows(), QStringList({"Notes.txt", "old NOTES"}));
    type("Down");
    ASSERT_TRUE(list.hasFocus());
    type("Ctrl+A");
    type("Return");
    EXPECT_EQ(log, QStringList("restore Notes.txt old NOTES"));
    type("Escape, Escape");
    EXPECT_EQ(rows(), QStringList({"image.png", "Notes.txt"}));
    EXPECT_FALSE(field.isVisible());
}

TEST_F(StatsWindowTest, ShowsNoButtonsBeforeTheFirstItem) {
    show();
    EXPECT_THAT(buttons(), IsEmpty());
    QStringList lines;
    for (const auto* const label : window.findChildren<QLabel*>())
        if (label->isVisible())
            lines << label->text();
    EXPECT_TRUE(lines.contains("Nothing has been sacrificed yet."));
    EXPECT_TRUE(lines.contains("Drop files on the Dock icon to feed the cauldron."));
    feedFiles({"a"});
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(buttons(), QStringList("Test the flames"));
}

TEST_F(StatsWindowTest, ChangesTabsByKeysAndIsATabListForScreenReaders) {
    show();
    std::vector<int> seen;
    for (const char* const keys : {"Ctrl+3", "Ctrl+Tab", "Ctrl+Tab", "Ctrl+Shift+Backtab"}) {
        type(keys);
        seen.push_back(static_cast<int>(view.tab()));
    }
    EXPECT_THAT(seen, ElementsAre(2, 3, 0, 3));
    auto& tabs = *window.findChild<SegmentedBar*>();
    tabs.setFocus();
    type("Left");
    EXPECT_EQ(view.tab(), StatsView::Tab::skins);
    const auto* const face = QAccessible::queryAccessibleInterface(&tabs);
    EXPECT_EQ(face->role(), QAccessible::PageTabList);
    QStringList titles;
    for (int i = 0; i < tabs.count(); ++i)
        titles << face->child(i)->text(QAccessible::Name);
    EXPECT_EQ(titles, QStringList({"History", "Achievements", "Skins", "Settings"}));
}

TEST_F(StatsWindowTest, AcceptsDropsAndReportsRemoteItems) {
    std::vector<std::pair<std::vector<Path>, int>> drops;
    QObject::connect(&window, &StatsWindow::dropped,
                     [&](const auto& items, int others) { drops.emplace_back(items, others); });
    show();
    QMimeData data;
    data.setData("text/uri-list", "file:///tmp/a%20b\r\nhttps://example.org/\r\n");
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the sender must not remove files";
    EXPECT_THAT(drops, ElementsAre(std::pair(std::vector<Path>{"/tmp/a b"}, 1)));
    QMimeData text;
    text.setText("file:///tmp/a");
    QDragEnterEvent other({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST_F(StatsWindowTest, FollowsTheColoursOfSkinAndDesktop) {
    progression.unlockAll();
    feedFiles({"a"});
    window.show();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktopPalette(dark));
        QCoreApplication::processEvents();
        const QColor ground = desktopPalette(dark).color(QPalette::Base);
        EXPECT_EQ(window.grab().toImage().pixelColor(1, 1), ground);
        for (const Skin* skin : {&Skin::cobalt(), &Skin::witchfire()}) {
            progression.select(*skin);
            EXPECT_TRUE(holds(window.grab().toImage(), Accent::of(*skin, ground).colour))
                << skin->id;
        }
    }
}

TEST_F(StatsWindowTest, FitsAtTheMinimumSizeAndAbove) {
    feedFiles({"a", "b"});
    show();
    type("Ctrl+A");
    const auto& pot = *window.findChild<CauldronView*>();
    EXPECT_EQ(pot.width(), 102);
    for (const QSize size : {QSize(100, 100), QSize(360, 760), QSize(1200, 900)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.size(), size.expandedTo({360, 520}));
        int right = 0;
        for (const auto* const button : window.findChildren<AccentButton*>()) {
            if (!button->isVisible())
                continue;
            const int left = button->mapTo(&window, QPoint()).x();
            EXPECT_GE(left, right) << size.width();
            right = left + button->width();
        }
        EXPECT_LE(right, window.width());
    }
}

} // namespace
} // namespace vexmoor
