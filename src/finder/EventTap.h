#pragma once

#include "InputEvent.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// What the file manager's key asks of the window system (ports).

namespace vexmoor {

/// Sees each key press and mouse press of the session before its application does. The handler runs
/// on a thread of the tap's choice and must decide within milliseconds: the session's input waits
/// for it.
class EventTap {
  public:
    using Handler = std::function<Verdict(const InputEvent&)>;

    virtual ~EventTap() = default;

    /// Starts calling the handler. False if the tap cannot be created now.
    virtual bool install(Handler handler) = 0;

    /// Enables the tap again after the system disabled it. Called by the handler.
    virtual void enable() = 0;

    /// Ends the tap. The handler is not called any more when this returns; the caller holds no lock
    /// that the handler takes.
    virtual void remove() = 0;

    /// Whether the handler wants to see Ctrl+Z before its application. Any thread.
    virtual void captureUndoKey(bool captures) = 0;
};

/// Which application the user works with. Called by the tap's handler.
class Workspace {
  public:
    static constexpr std::string_view kFinder = "com.apple.finder";

    virtual ~Workspace() = default;
    /// The bundle identifier of the frontmost application, that of the Finder for any file manager;
    /// nullopt if there is none.
    virtual std::optional<std::string> frontmostApplication() = 0;
};

/// What has the keyboard focus. Called by the tap's handler.
class FocusedElement {
  public:
    virtual ~FocusedElement() = default;
    /// True if it is a text field, or might be one.
    virtual bool isText() = 0;
};

} // namespace vexmoor
