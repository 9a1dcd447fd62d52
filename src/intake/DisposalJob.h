#pragma once

#include "disposal/Disposer.h"
#include "intake/BatchResult.h"
#include "intake/GroupedWork.h"
#include "intake/PicturePrefetch.h"
#include "progression/Progression.h"

#include <map>

namespace vexmoor {

/// The files at the paths when the user was asked.
using SeenItems = std::map<std::string, FileIdentity>;

/// An item that is about to be disposed of.
struct FedItem {
    PicturePointer picture;
    HeldItem held;
    JournalEntry entry;
};

/// The work-queue part of a fed batch: loads pictures of its items, measures and disposes of them
/// in order.
class DisposalJob : private GroupedWork<FedItem> {
  public:
    /// The maximum number of items with a picture.
    static constexpr std::size_t kPictured = 10;

    struct Input {
        const std::vector<StoredPath>& items; ///< must outlive the job
        DisposeMode mode = DisposeMode::bin;
        SeenItems seen;          ///< of all items; empty if the user was not asked
        ItemPictures thumbnails; ///< of some
        JournalStart start{};
    };

    struct Output {
        BatchResult result;
        std::vector<Progression::Offering> offerings;
        std::vector<PicturePointer> pictures;
        bool animationStarted = false;
        std::optional<JournalMark> journal;
    };

    struct Surroundings {
        UserDirectories directories;
        Journal& journal;
        Thumbnails& thumbnails;
        WorkMeter& meter;
        Clock clock;
        /// Called once when kPictured items have their pictures, so that a large batch starts
        /// burning early.
        std::function<void(std::vector<PicturePointer>)> startAnimation;
    };

    DisposalJob(Input input, Surroundings surroundings);

    Output run();

  private:
    std::optional<FedItem> prepare(std::size_t number) override;
    void carryOut(FedItem& item) override;
    void fail(const FedItem& item, const Error& error) override;
    void leave(std::size_t number) override;
    void leave(const FedItem& item) override;
    Result<HeldItem> hold(const Path& path);
    Result<void> intend(FedItem& item);
    Result<Disposer::Disposed> dispose(FedItem& item);
    void limitFolders(const HeldItem& item);
    PicturePointer pictureOf(const Path& path);
    void addPicture(PicturePointer picture);

    Input m_input;
    Surroundings m_surroundings;
    Disposer m_disposer;
    std::size_t m_picturesLoaded = 0;
    std::size_t m_picturesAwaited = 0; ///< pictured items that are not carried out yet
    std::weak_ptr<const HeldFolder> m_lastFolder;
    std::size_t m_foldersHeld = 0; ///< by the current group
    Output m_output;
};

} // namespace vexmoor
