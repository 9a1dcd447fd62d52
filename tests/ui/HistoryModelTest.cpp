#include "ui/HistoryModel.h"

#include "support/FakeClock.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vexmoor {
namespace {

using namespace test;

const Date kNow = utc("2026-11-22 14:00:00");

/// Returns an item for each letter; upper-case ones were put back.
std::vector<Sacrifice> itemsOf(const std::string& letters) {
    std::vector<Sacrifice> items;
    for (const char letter : letters) {
        Sacrifice item;
        item.id.bytes[0] = static_cast<std::uint8_t>(std::tolower(letter));
        item.name = {static_cast<char>(std::tolower(letter))};
        item.date = kNow;
        item.original = StoredPath("/home/" + item.name);
        item.trashed = StoredPath("/bin/" + item.name);
        if (std::isupper(letter) != 0)
            item.restored = kNow;
        items.push_back(item);
    }
    return items;
}

struct HistoryModelTest : testing::Test {
    HistoryModelTest() {
        const auto write = [this](const char* what) {
            return [this, what](const QModelIndex&, int first, int last) {
                log << what << first << '-' << last << ' ';
            };
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, write("+"));
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, write("-"));
        QObject::connect(&model, &QAbstractItemModel::modelReset, [this] { log << "reset "; });
        QObject::connect(&model, &HistoryModel::restored, [this] { log << "back "; });
        QObject::connect(
            &model, &QAbstractItemModel::dataChanged,
            [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
                log << (roles.isEmpty() ? "~" : "time ") << first.row() << '-' << last.row() << ' ';
            });
    }

    std::string change(const std::string& from, const std::string& to) {
        model.setItems(itemsOf(from), kNow);
        log.str({});
        model.setItems(itemsOf(to), kNow);
        EXPECT_EQ(model.items(), itemsOf(to)) << from << " to " << to;
        return log.str();
    }

    std::vector<BinnedPictures::Completion> asked;
    HistoryModel model{[this](const Sacrifice&, BinnedPictures::Completion completion) {
                           asked.push_back(std::move(completion));
                       },
                       nullptr};
    std::ostringstream log;
};

TEST_F(HistoryModelTest, SignalsOnlyChangedRows) {
    struct Case {
        const char* from;
        const char* to;
        const char* signals_;
    };
    for (const auto& [from, to, signals_] : {
             Case{"", "abc", "+0-2 "},
             Case{"abc", "abc", ""},
             Case{"abc", "xyabc", "+0-1 "},
             Case{"abc", "xyab", "-2-2 +0-1 "},
             Case{"abc", "aBc", "back ~1-1 "},
             Case{"aBc", "abc", "~1-1 "},
             Case{"abcdef", "bf", "-2-4 -0-0 "},
             Case{"abcd", "xbydz", "-2-2 -0-0 +0-0 +2-2 +4-4 "},
             Case{"abc", "", "-0-2 "},
             Case{"abc", "xyz", "-0-2 +0-2 "},
         })
        EXPECT_EQ(change(from, to), signals_) << from << " to " << to;
    change("abc", "cab"); // also for another order
}

TEST_F(HistoryModelTest, UpdatesTimesOnAnotherDay) {
    model.setItems(itemsOf("ab"), kNow);
    log.str({});
    model.setItems(itemsOf("ab"), utc("2026-11-22 23:59:59"));
    EXPECT_EQ(log.str(), "");
    model.setItems(itemsOf("ab"), utc("2026-11-23 00:00:00"));
    EXPECT_EQ(log.str(), "time 0-1 ");
    EXPECT_TRUE(model.index(0)
                    .data(HistoryModel::statusRole)
                    .toString()
                    .endsWith(QStringLiteral("yesterday")));
}

TEST_F(HistoryModelTest, LoadsAPictureOnFirstUse) {
    model.setItems(itemsOf("ab"), kNow);
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(model.index(1).data(Qt::DecorationRole).value<QImage>().isNull());
    EXPECT_FALSE(model.index(1).data(HistoryModel::previewRole).toBool());
    ASSERT_EQ(asked.size(), 1U);
    log.str({});
    asked.front()({QImage(4, 4, QImage::Format_RGB32), true});
    EXPECT_EQ(log.str(), "time 1-1 ");
    EXPECT_EQ(model.index(1).data(Qt::DecorationRole).value<QImage>().size(), QSize(4, 4));
    EXPECT_TRUE(model.index(1).data(HistoryModel::previewRole).toBool());
    model.setItems({}, kNow);
    asked.front()({QImage(4, 4, QImage::Format_RGB32), true}); // too late
    model.setItems(itemsOf("b"), kNow);
    EXPECT_TRUE(model.index(0).data(Qt::DecorationRole).value<QImage>().isNull());
    EXPECT_EQ(asked.size(), 2U);
}

TEST_F(HistoryModelTest, OnlyItemsInTheBinCanBeDragged) {
    model.setItems(itemsOf("aB"), kNow);
    EXPECT_TRUE(model.flags(model.index(0)) & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(model.flags(model.index(1)) & Qt::ItemIsDragEnabled);
    EXPECT_EQ(model.supportedDragActions(), Qt::CopyAction);
}

} // namespace
} // namespace vexmoor
