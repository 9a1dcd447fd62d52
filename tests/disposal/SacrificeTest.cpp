#include "disposal/Sacrifice.h"

#include <gtest/gtest.h>

namespace vexmoor::test {
namespace {

TEST(DisposeMode, RawValuesAreCaseSensitive) {
    for (const auto mode : kDisposeModes)
        EXPECT_EQ(disposeModeFromRawValue(toRawValue(mode)), mode);
    EXPECT_EQ(toRawValue(DisposeMode::bin), "bin");
    EXPECT_EQ(toRawValue(DisposeMode::dissolve), "dissolve");
    for (const char* text : {"", "Bin", "DISSOLVE", "dissolve ", "trash"})
        EXPECT_FALSE(disposeModeFromRawValue(text)) << text;
}

TEST(Sacrifice, CanBePutBackWhileInTheBin) {
    Sacrifice binned;
    binned.original = "/a";
    binned.trashed = "/b";
    const struct {
        const char* what;
        void (*change)(Sacrifice&);
        bool canRestore;
    } cases[] = {
        {"binned", [](Sacrifice&) {}, true},
        {"not found lost", [](Sacrifice& record) { record.lost = false; }, true},
        {"found lost", [](Sacrifice& record) { record.lost = true; }, false},
        {"put back", [](Sacrifice& record) { record.restored = Date{}; }, false},
        {"deleted", [](Sacrifice& record) { record.deleted = Date{}; }, false},
        {"place in the Bin unknown", [](Sacrifice& record) { record.trashed.reset(); }, false},
        {"origin unknown", [](Sacrifice& record) { record.original.reset(); }, false},
        {"dissolved", [](Sacrifice& record) { record.mode = DisposeMode::dissolve; }, false},
    };
    for (const auto& test : cases) {
        Sacrifice record = binned;
        test.change(record);
        EXPECT_EQ(record.canRestore(), test.canRestore) << test.what;
    }
}

} // namespace
} // namespace vexmoor::test
