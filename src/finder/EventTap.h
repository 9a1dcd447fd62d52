#pragma once

#include "InputEvent.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// Ports through which the file manager's key uses the window system.

namespace vexmoor {

/// Receives each key press and button press of the session before its application. The handler runs
/// on a thread of the tap's choice and must return within milliseconds, because it blocks the
/// session's input.
class EventTap {
  public:
    using Handler = std::function<Verdict(const InputEvent&)>;

    virtual ~EventTap() = default;

    /// Starts calling the handler. Returns false if the tap cannot be created now.
    virtual bool install(Handler handler) = 0;

    /// Re-enables the tap after the system disabled it. Called by the handler.
    virtual void enable() = 0;

    /// Stops the tap. The handler is not called after this returns; the caller must not hold a lock
    /// that the handler takes.
    virtual void remove() = 0;

    /// Sets whether the handler receives Ctrl+Z before its application. Thread-safe.
    virtual void captureUndoKey(bool captures) = 0;
};

/// The application in use. Called by the tap's handler.
class Workspace {
  public:
    static constexpr std::string_view kFinder = "com.apple.finder";

    virtual ~Workspace() = default;
    /// Returns the bundle identifier of the frontmost application, kFinder for any file manager;
    /// nullopt if there is none.
    virtual std::optional<std::string> frontmostApplication() = 0;
};

/// The element with the keyboard focus. Called by the tap's handler.
class FocusedElement {
  public:
    virtual ~FocusedElement() = default;
    /// True if it is a text field or may be one.
    virtual bool isText() = 0;
};

} // namespace vexmoor
