#include "integration/FileManagers.h"
#include "integration/ProgramVersion.h"

#include <gtest/gtest.h>

#include <set>

namespace vexmoor {
namespace {

TEST(FileManagers, AreFoundByTheirExactWindowClass) {
    for (const auto& [windowClass, id] :
         {std::pair("Thunar", "thunar"), std::pair("Nemo", "nemo"), std::pair("Caja", "caja"),
          std::pair("Pcmanfm", "pcmanfm"), std::pair("pcmanfm-qt", "pcmanfm-qt"),
          std::pair("dolphin", "dolphin"), std::pair("org.gnome.Nautilus", "nautilus"),
          std::pair("krusader", "krusader")}) {
        const auto* const manager = fileManagerOfWindowClass(windowClass);
        ASSERT_NE(manager, nullptr) << windowClass;
        EXPECT_EQ(manager->id, id);
        EXPECT_EQ(fileManagerWithId(id), manager);
    }
    for (const char* const other : {"", "THUNAR", "Thunar ", "dolphin-emu", "xterm"})
        EXPECT_EQ(fileManagerOfWindowClass(other), nullptr) << other;
}

TEST(FileManagers, ShareNoWindowClassOrProgram) {
    std::multiset<std::string_view> classes;
    std::multiset<std::string_view> programs;
    for (const auto& manager : kFileManagers) {
        classes.insert(manager.windowClasses.begin(), manager.windowClasses.end());
        programs.insert(manager.programs.begin(), manager.programs.end());
    }
    EXPECT_EQ(classes.size(), std::set(classes.begin(), classes.end()).size());
    EXPECT_EQ(programs.size(), std::set(programs.begin(), programs.end()).size());
}

TEST(ProgramVersion, IsTheFirstVersionInTheOutput) {
    using Version = std::optional<ProgramVersion>;
    EXPECT_EQ(firstVersionIn("nemo 5.6.4\n"), Version({5, 6}));
    EXPECT_EQ(firstVersionIn("Qt5 dolphin 26.04.1"), Version({26, 4}));
    EXPECT_EQ(firstVersionIn("99999999999.1 6.4"), Version({6, 4}));
    for (const char* const none : {"", "nemo", "5", "5.", ".5", "5.x"})
        EXPECT_EQ(firstVersionIn(none), std::nullopt) << none;
}

} // namespace
} // namespace vexmoor
