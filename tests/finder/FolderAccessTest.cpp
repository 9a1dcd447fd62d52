#include "finder/FolderAccess.h"

#include "base/PlainQueue.h"
#include "support/InMemoryDefaults.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vexmoor {
namespace {

using namespace test;
using FolderAccess::Folder;

TEST(FolderAccessTest, ReportsWhichUserFoldersAreReadable) {
    const TemporaryDirectory home;
    ::setenv("XDG_CONFIG_HOME", (home.path() / "config").c_str(), 1);
    home.write("config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"" + home.path().native() +
                                            "/Screen\"\nXDG_DOCUMENTS_DIR=\"" +
                                            home.path().native() + "/gone\"\nXDG_DOWNLOAD_DIR=\"" +
                                            home.path().native() + "/file\"\n");
    std::filesystem::create_directory(home.path() / "Screen"); // empty but readable
    home.write("file", "not a folder");

    InMemoryDefaults defaults;
    PlainQueue background;
    PlainQueue main;
    std::vector<FolderAccess::Readable> answers;
    FolderAccess::probe(defaults, background, main,
                        [&](const auto& readable) { answers.push_back(readable); });
    EXPECT_EQ(defaults.boolean(FolderAccess::kAskedKey), true);
    background.runUntilEmpty();
    EXPECT_TRUE(answers.empty()) << "the completion did not run through the main queue";
    main.runUntilEmpty();
    const FolderAccess::Readable expected{
        {Folder::desktop, true}, {Folder::documents, false}, {Folder::downloads, false}};
    EXPECT_EQ(answers, std::vector{expected});
}

} // namespace
} // namespace vexmoor
