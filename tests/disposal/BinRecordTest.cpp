#include "BinFixture.h"

namespace vexmoor::test {

namespace {

/// Only the record's item leaves the Bin.
using BinRecordTest = BinTest;

TEST_F(BinRecordTest, ChangesOnlyTheRecordsItem) {
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
        {TrashInfo{original, {}}.toText(), DisposalError::withoutInfo},
        {text(original, 1711886400 + 3600), DisposalError::withoutInfo},
        {text(original, 1711886400 + 27 * 3600), DisposalError::goneFromBin},
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
    EXPECT_TRUE(erase(odd, BinRecord{link, {}, factsOf(odd)}).ok());
}

TEST_F(BinRecordTest, IdentifiesAnItemByItsFactsWithoutInfoFile) {
    constexpr std::int64_t kHour = 3600 * std::int64_t{1000000000};
    struct Case {
        const char* what;
        std::function<void(ItemFacts&)> change;
        bool isKnown;
    };
    const Case cases[] = {
        {"as recorded", [](ItemFacts&) {}, true},
        {"numbered again at a remount", [](ItemFacts& facts) { facts.inode += 7; }, true},
        {"no stable inode", [](ItemFacts& facts) { facts.inode = 0; }, true},
        {"another zone on FAT", [](ItemFacts& facts) { facts.birthNanoseconds += 2 * kHour; },
         true},
        {"birth unknown", [](ItemFacts& facts) { facts.birthNanoseconds = 0; }, true},
        {"made later", [](ItemFacts& facts) { facts.birthNanoseconds -= 1; }, false},
        {"another size", [](ItemFacts& facts) { facts.size += 1; }, false},
        {"another kind", [](ItemFacts& facts) { facts.kind = S_IFDIR; }, false},
        {"nothing known", [](ItemFacts& facts) { facts = {}; }, false},
        {"birth unknown, another inode",
         [](ItemFacts& facts) { facts.birthNanoseconds = 0, facts.inode += 7; }, false},
    };
    const auto removed = [](const Path& info) { std::filesystem::remove(info); };
    const auto emptied = [](const Path& info) { std::ofstream(info).flush(); };
    const auto replaced = [](const Path& info) {
        std::filesystem::remove(info);
        mkfifo(info.c_str(), 0600);
    };
    const Path original = path() / "a";
    for (const auto& [what, change, isKnown] : cases)
        for (const std::function<void(const Path&)>& lose :
             std::vector<std::function<void(const Path&)>>{removed, emptied, replaced}) {
            SCOPED_TRACE(what);
            write("a", "x");
            const Path place = bin(original);
            BinRecord record{original, Date::now(), factsOf(place)};
            change(record.facts);
            lose(infoOf(place));
            const auto back = putBack(place, record);
            EXPECT_EQ(back.ok(), isKnown) << describe(back.error());
            if (!isKnown) {
                EXPECT_NE(back.error().code, make_error_code(DisposalError::goneFromBin));
                EXPECT_EQ(read(place), "x");
                std::filesystem::remove(place);
            }
            std::filesystem::remove(infoOf(place));
        }
}

TEST_F(BinRecordTest, RepairsAMissingOrEmptyInfoFile) {
    write("a b", "x");
    const Path place = bin(path() / "a b");
    const BinRecord record{path() / "a b", Date::now(), factsOf(place)};
    const auto whole = TrashInfo{record.path, record.deletionDate}.toText();
    const auto repair = [&] { return Disposer(directories(), nullptr).repairInfo(place, record); };
    std::ofstream(infoOf(place)).flush();
    EXPECT_EQ(repair().value(), true);
    EXPECT_EQ(read(infoOf(place)), whole);
    EXPECT_EQ(repair().value(), false);
    std::filesystem::remove(infoOf(place));
    EXPECT_EQ(repair().value(), true);
    EXPECT_EQ(read(infoOf(place)), whole);
}

TEST_F(BinRecordTest, ReportsAnItemAsLostOnlyOnItsOwnVolume) {
    inProcess([&] {
        makeFolder("stick");
        makeFolder("other");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountMemory("stick");
        mountMemory("other");
        write("stick/a", "x");
        auto disposed = dispose(path() / "stick/a");
        ASSERT_TRUE(disposed.ok() && disposed->binned);
        const Path place = disposed->binned->place;
        const BinRecord record{path() / "stick/a", Date::now(), disposed->binned->facts};
        const auto refusal = [&] { return putBack(place, record).error().code; };

        ASSERT_EQ(mount((path() / "other").c_str(), (path() / "stick").c_str(), nullptr, MS_MOVE,
                        nullptr),
                  0);
        EXPECT_EQ(refusal(), make_error_code(DisposalError::volumeNotThere))
            << "no Bin on that volume";
        write("stick/b", "y");
        (void)bin(path() / "stick/b");
        EXPECT_EQ(refusal(), make_error_code(DisposalError::volumeNotThere)) << "not in that Bin";
        write("stick/a", "z");
        ASSERT_EQ(rename((path() / "stick/a").c_str(), (path() / "stick/deep").c_str()), 0);
        write("stick/other/a", "z");
        (void)bin(path() / "stick/other/a");
        EXPECT_EQ(refusal(), make_error_code(DisposalError::volumeNotThere)) << "another item";

        ASSERT_EQ(umount((path() / "stick").c_str()), 0);
        EXPECT_EQ(read(place), "x");
        std::filesystem::remove(place);
        EXPECT_EQ(refusal(), make_error_code(DisposalError::goneFromBin));
    });
}

TEST_F(BinRecordTest, IdentifiesItemsAfterATimeZoneChange) {
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
            ASSERT_TRUE(place.ok() && place->binned);
            useZone(zone);
            const auto late = Date::fromUnix(binned.unixSeconds() + 1800);
            EXPECT_FALSE(putBack(place->binned->place, path() / "a", late).ok())
                << "possible as a time zone, but the file's time differs";
            EXPECT_TRUE(putBack(place->binned->place, path() / "a", binned).ok()) << zone;
        }
    });
}

TEST_F(BinRecordTest, IdentifiesItemsOnAVolumeThroughALink) {
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
