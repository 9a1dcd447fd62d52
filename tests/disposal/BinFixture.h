#pragma once

#include "TreeFixture.h"

#include "disposal/DisposalError.h"
#include "disposal/Disposer.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A scratch home folder with a Bin.
class BinTest : public TreeTest {
  protected:
    [[nodiscard]] UserDirectories directories() const {
        return {path(), path() / ".local/share", geteuid()};
    }
    [[nodiscard]] Path binPath() const { return path() / ".local/share/Trash"; }

    /// Disposes of one item in its own batch.
    [[nodiscard]] Result<Disposer::Disposed>
    dispose(const Path& item, DisposeMode mode = DisposeMode::bin,
            const Disposer::PlaceObserver& willTake = kUnobserved) const {
        Disposer disposer(directories(), nullptr);
        auto held = disposer.hold(standardized(item));
        if (!held)
            return std::move(held).error();
        return disposer.dispose(*held, mode, disposer.size(*held), Date::now(), willTake);
    }
    /// Same, but returns the path in the Bin.
    [[nodiscard]] Path bin(const Path& item) const {
        auto disposed = dispose(item);
        EXPECT_TRUE(disposed.ok()) << item << ": " << describe(disposed.error());
        return disposed.ok() && disposed->binned ? disposed->binned->place : Path();
    }
    [[nodiscard]] Result<Path>
    putBack(const Path& place, const BinRecord& record,
            const Disposer::DepartureObserver& willLeave = kUnseen) const {
        return Disposer(directories(), nullptr).restore(place, record, willLeave);
    }
    [[nodiscard]] Result<Path> putBack(const Path& place, const Path& to,
                                       std::optional<Date> binned = {}) const {
        return putBack(place, BinRecord{to, binned});
    }
    [[nodiscard]] Result<void> erase(const Path& place, const BinRecord& record,
                                     const Disposer::DepartureObserver& willLeave = kUnseen) const {
        return Disposer(directories(), nullptr).erase(place, record, willLeave);
    }
    [[nodiscard]] Result<void> erase(const Path& place, const Path& original,
                                     std::optional<Date> binned = {}) const {
        return erase(place, BinRecord{original, binned});
    }
    /// Returns the facts that a record of the item in the Bin has.
    [[nodiscard]] static ItemFacts factsOf(const Path& place) {
        return ItemFacts::of(*fileStatus(place), true);
    }

    static std::string read(const Path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void write(const Path& name, const std::string& bytes) const {
        std::filesystem::create_directories((path() / name).parent_path());
        std::ofstream(path() / name, std::ios::binary) << bytes;
    }
    static Path infoOf(const Path& place) {
        return place.parent_path().parent_path() / "info" /
               (place.filename().native() + ".trashinfo");
    }
    /// Sets the file's time back.
    static void age(const Path& file, std::chrono::hours by = std::chrono::hours(1)) {
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - by);
    }

    static inline const Disposer::PlaceObserver kUnobserved = [](const Path&) {
        return Result<void>();
    };
    static inline const Disposer::DepartureObserver kUnseen = [](const FileStatus&, const Path&) {
        return Result<void>();
    };
};

} // namespace vexmoor::test
