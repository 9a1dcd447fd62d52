#pragma once

#include "base/Path.h"

#include <chrono>
#include <map>
#include <memory>

namespace vexmoor {

/// Looks at folders, each time on a thread of its own, as a call that hangs can't be ended. A
/// folder whose look has not ended is not looked at again. One thread.
class VolumeLooks {
  public:
    enum class Answer {
        yes,    ///< the system says something of it, if only that it is not there
        no,     ///< it has said nothing for kTimeout
        notYet, ///< it has said nothing for as long as is waited for it
    };
    static constexpr std::chrono::milliseconds kTimeout{2000};

    /// `patience`: how long answer() waits at most.
    explicit VolumeLooks(std::chrono::milliseconds patience = kTimeout) : m_patience(patience) {}

    Answer answer(const Path& folder);

  private:
    struct Look;

    static std::shared_ptr<Look> begin(const Path& folder);

    std::chrono::milliseconds m_patience;
    std::map<Path, std::shared_ptr<Look>> m_looks; ///< the last one of each folder
};

/// Tells volumes that answer from those that hang, as a network's or a program's may, so that
/// nothing waits for them: looks at each once. One thread.
class VolumeCheck {
  public:
    using Answer = VolumeLooks::Answer;

    explicit VolumeCheck(std::shared_ptr<VolumeLooks> looks = std::make_shared<VolumeLooks>())
        : m_looks(std::move(looks)) {}

    Answer answer(const Path& folder);

    /// The same of a place in a Bin; the home Bin is not asked.
    Answer answerFor(const Path& place);

    [[nodiscard]] bool answers(const Path& folder) { return answer(folder) == Answer::yes; }
    [[nodiscard]] bool answersFor(const Path& place) { return answerFor(place) == Answer::yes; }

  private:
    std::shared_ptr<VolumeLooks> m_looks;
    std::map<Path, Answer> m_known;
};

} // namespace vexmoor
