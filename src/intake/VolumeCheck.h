#pragma once

#include "base/Path.h"

#include <chrono>
#include <map>
#include <memory>

namespace vexmoor {

/// Checks folders, each on its own thread, because a hanging system call cannot be cancelled. Does
/// not check a folder again before its last check has ended. Not thread-safe.
class VolumeLooks {
  public:
    enum class Answer {
        yes,    ///< the system answers, even if the folder does not exist
        no,     ///< no answer within kTimeout
        notYet, ///< no answer within the caller's timeout
    };
    static constexpr std::chrono::milliseconds kTimeout{2000};

    /// `patience` is the maximum time that answer() waits.
    explicit VolumeLooks(std::chrono::milliseconds patience = kTimeout) : m_patience(patience) {}

    Answer answer(const Path& folder);

  private:
    struct Look;

    static std::shared_ptr<Look> begin(const Path& folder);

    std::chrono::milliseconds m_patience;
    std::map<Path, std::shared_ptr<Look>> m_looks; ///< the last check of each folder
};

/// Detects volumes that hang, such as network or FUSE mounts. Checks each volume only once. Not
/// thread-safe.
class VolumeCheck {
  public:
    using Answer = VolumeLooks::Answer;

    explicit VolumeCheck(std::shared_ptr<VolumeLooks> looks = std::make_shared<VolumeLooks>())
        : m_looks(std::move(looks)) {}

    Answer answer(const Path& folder);

    /// Checks the volume of a path in a Bin; the home Bin is not checked.
    Answer answerFor(const Path& place);

    [[nodiscard]] bool answers(const Path& folder) { return answer(folder) == Answer::yes; }
    [[nodiscard]] bool answersFor(const Path& place) { return answerFor(place) == Answer::yes; }

  private:
    std::shared_ptr<VolumeLooks> m_looks;
    std::map<Path, Answer> m_known;
};

} // namespace vexmoor
