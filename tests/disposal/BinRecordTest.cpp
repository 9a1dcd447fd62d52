#include "BinFixture.h"

namespace vexmoor::test {

namespace {

/// What leaves the Bin is the item of the record.
using BinRecordTest = BinTest;

TEST_F(BinRecordTest, TouchesNothingButTheItemOfTheRecord) {
    const Date binned = Date::fromUnix(1711886400.75); // 2024-03-31 12:00:00 UTC
    write("docs/a b.txt", "x");
    const Path original = path() / "docs/a b.txt";
    const Path place = bin(original);
    struct Case {
        std::optional<std::string> info;
        std::optional<DisposalError> refusal;
    };
    const auto text = [](const Path& at, double seconds) {
        return TrashInfo{at, Date::fromUnix(seconds)}.toText();
    };
    const auto whole = text(original, 1711886400);
    const std::vector<Case> cases = {
        {text(path() / "other/a b.txt", 1711886400), DisposalError::goneFromBin},
        {text(original, 1711886401), DisposalError::goneFromBin},
        {text(original, 1711886399), DisposalError::goneFromBin},
        {TrashInfo{original, {}}.toText(), DisposalError::goneFromBin},
        {text(original, 1711886400 + 3600), DisposalError::goneFromBin},
        {std::nullopt, DisposalError::withoutInfo},
        {"", DisposalError::withoutInfo},
        {whole.substr(0, whole.find("Path")), DisposalError::withoutInfo},
        {whole, std::nullopt},
    };
    for (const auto& [info, refusal] : cases) {
        SCOPED_TRACE(info.value_or("no info file"));
        std::filesystem::remove(infoOf(place));
        if (info)
            std::ofstream(infoOf(place), std::ios::binary) << *info;
        const auto before = contents();
        if (refusal) {
            for (const auto& error :
                 {putBack(place, original, binned).error(), erase(place, original, binned).error()})
                EXPECT_EQ(error.code, make_error_code(*refusal)) << describe(error);
            EXPECT_EQ(contents(), before);
        } else {
            EXPECT_TRUE(putBack(place, original, binned).ok());
            EXPECT_EQ(read(original), "x");
        }
    }
    const Path link = path() / "info is a folder";
    write(link.filename(), "x");
    const Path odd = bin(link);
    std::filesystem::remove(infoOf(odd));
    std::filesystem::create_directory(infoOf(odd));
    EXPECT_EQ(erase(odd, link).error().code, std::errc::is_a_directory);
    EXPECT_EQ(read(odd), "x");
}

TEST_F(BinRecordTest, KnowsItsItemsAfterTheClockGotAnotherTimeZone) {
    const auto useZone = [](const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    };
    inProcess([&] {
        for (const char* zone : {"UTC0", "IST-5:30", "NZDT-13", "BST+11"}) {
            useZone("CET-1");
            write("a", zone);
            const Date binned = Date::now();
            Disposer disposer(directories(), nullptr);
            auto held = disposer.hold(path() / "a");
            ASSERT_TRUE(held.ok());
            const auto place = disposer.dispose(*held, DisposeMode::bin, 0, binned, kUnobserved);
            ASSERT_TRUE(place.ok() && *place);
            useZone(zone);
            const auto late = Date::fromUnix(binned.unixSeconds() + 1800);
            EXPECT_FALSE(putBack(**place, path() / "a", late).ok())
                << "a zone may lie so far away, but the file is not from then";
            EXPECT_TRUE(putBack(**place, path() / "a", binned).ok()) << zone;
        }
    });
}

TEST_F(BinRecordTest, KnowsItsItemsOnAVolumeThroughALink) {
    inProcess([&] {
        makeFolder("volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountMemory("volume");
        ASSERT_EQ(symlink("volume", (path() / "link").c_str()), 0);
        for (const char* kept : {"deep", "nothing"}) {
            write("volume/deep/a", "x");
            write("volume/other/a", "other");
            const Path place = bin(path() / "link/deep/a");
            const Path other = bin(path() / "volume/other/a");
            EXPECT_EQ(putBack(other, path() / "link/deep/a").error().code,
                      make_error_code(DisposalError::goneFromBin));
            if (std::string(kept) == "nothing") {
                std::filesystem::remove_all(path() / "volume/deep");
                EXPECT_TRUE(erase(place, path() / "link/deep/a").ok());
            } else {
                EXPECT_TRUE(putBack(place, path() / "link/deep/a").ok());
                EXPECT_EQ(read(path() / "volume/deep/a"), "x");
            }
        }
    });
}

} // namespace

} // namespace vexmoor::test
