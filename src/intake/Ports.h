#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// Interfaces of the intake's environment. Called on the main thread except where noted.

namespace vexmoor {

/// A picture of an item; only its creator and the animation know the concrete type.
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
    std::optional<std::string> suppression; ///< title of the check box, if any
    std::string items{}; ///< the items concerned, one per line, if the message does not name them
};

struct Answer {
    bool confirmed = false;
    bool suppressed = false; ///< the check box was checked when the question closed
    bool isGiven = false;    ///< false if the question was withdrawn
};

/// An item for which an operation failed. The name is for display.
struct Failure {
    std::string name;
    Error error;
    std::optional<StoredPath> path{}; ///< current or last path of the item, if known

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
    /// Calls `answered` exactly once, synchronously or later.
    virtual void ask(const Question& question, std::function<void(const Answer&)> answered) = 0;
    virtual void report(const FailureReport& report) = 0;
    virtual void beep() = 0;
};

/// Animates a batch; items without a picture have a null one.
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

    /// Calls `completion` exactly once on the main thread, synchronously or later; with null if
    /// there is no picture.
    virtual void load(const Path& item, std::function<void(PicturePointer)> completion) = 0;

    /// Called on the work queue; may block for a limited time.
    virtual PicturePointer loadNow(const Path& item) = 0;
};

/// The undo key in the file manager, for what was fed from there.
class UndoKey {
  public:
    virtual ~UndoKey() = default;
    virtual void disarm() = 0;
};

} // namespace vexmoor
