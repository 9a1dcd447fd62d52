#pragma once

#include "disposal/Disposer.h"
#include "disposal/Journal.h"
#include "intake/BatchResult.h"
#include "progression/Progression.h"

#include <map>

namespace vexmoor {

/// What stood at paths when the user was asked.
using SeenItems = std::map<std::string, FileIdentity>;

/// The work-queue side of one fed batch: pictures, measures and disposes of its items in order.
class DisposalJob {
  public:
    /// Items of one batch that are pictured.
    static constexpr std::size_t kPictured = 10;

    struct Input {
        const std::vector<StoredPath>& items; ///< outlive the job
        DisposeMode mode = DisposeMode::bin;
        SeenItems seen; ///< of all items, or empty where nobody was asked
        std::map<std::string, PicturePointer> thumbnails; ///< by path
        std::int64_t lastRecorded = 0; ///< number of the newest journal in the stores
    };

    struct Output {
        BatchResult result;
        std::vector<Progression::Offering> offerings;
        std::vector<PicturePointer> pictures;
        bool animationStarted = false;
        std::optional<std::int64_t> journalNumber;
    };

    struct Surroundings {
        UserDirectories directories;
        Journal& journal;
        Thumbnails& thumbnails;
        WorkMeter& meter;
        Clock clock;
        /// Called once when kPictured items are pictured, so that a large batch burns early.
        std::function<void(std::vector<PicturePointer>)> startAnimation;
    };

    DisposalJob(Input input, Surroundings surroundings);

    Output run();

  private:
    void handle(const Path& path);
    Result<HeldItem> hold(const Path& path);
    Result<JournalEntry> disposeOf(const HeldItem& item, std::int64_t bytes);
    Result<void> intend(const JournalEntry& entry);
    PicturePointer pictureOf(const Path& path);
    void addPicture(PicturePointer picture);

    Input m_input;
    Surroundings m_surroundings;
    Disposer m_disposer;
    std::unique_ptr<JournalWriter> m_writer;
    std::size_t m_picturesLoaded = 0;
    Output m_output;
};

} // namespace vexmoor
