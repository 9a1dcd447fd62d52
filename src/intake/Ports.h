#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the intake asks of its surroundings. All are called on the main thread but where it is said.

namespace vexmoor {

/// A picture of an item; what it is made of is known to whoever makes and shows it.
class Picture {
  public:
    virtual ~Picture() = default;
};
using PicturePointer = std::shared_ptr<const Picture>;

/// A yes-or-no question; `confirm` is the first and default button.
struct Question {
    std::string message;
    std::string informative;
    std::string confirm;
    std::string cancel;
    std::optional<std::string> suppression; ///< title of a check box, where there is one
    std::string items{}; ///< what it is about, a line each, where the message does not name it
};

struct Answer {
    bool confirmed = false;
    bool suppressed = false; ///< the check box was on when the question closed
    bool isGiven = false;    ///< by the user; false if the question was withdrawn
};

/// One item that an operation failed for; the name is text to show.
struct Failure {
    std::string name;
    Error error;
    std::optional<StoredPath> path{}; ///< where the item is or was, where that is known

    bool operator==(const Failure&) const = default;
};

struct FailureReport {
    std::string message;
    std::string informative;
    std::vector<Failure> failures;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    /// Answers once, at once or later.
    virtual void ask(const Question& question, std::function<void(const Answer&)> answered) = 0;
    virtual void report(const FailureReport& report) = 0;
    virtual void beep() = 0;
};

/// Shows a batch going into the cauldron; absent pictures stand for items without one.
class BatchAnimation {
  public:
    virtual ~BatchAnimation() = default;
    virtual void play(std::vector<PicturePointer> pictures) = 0;
};

class SizzlePlayer {
  public:
    virtual ~SizzlePlayer() = default;
    virtual void play() = 0;
};

class Thumbnails {
  public:
    virtual ~Thumbnails() = default;

    /// Answers once, on the main thread, at once or later; without a picture where there is none.
    virtual void load(const Path& item, std::function<void(PicturePointer)> completion) = 0;

    /// Called on the work queue; may block for a bounded time.
    virtual PicturePointer loadNow(const Path& item) = 0;
};

/// The key that undoes in the file manager what was fed from it.
class UndoKey {
  public:
    virtual ~UndoKey() = default;
    virtual void disarm() = 0;
};

} // namespace vexmoor
