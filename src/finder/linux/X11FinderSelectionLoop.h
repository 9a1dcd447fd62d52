#pragma once

#include "CopyKey.h"
#include "FileManagerWindows.h"
#include "SelectionOwner.h"
#include "SelectionReader.h"
#include "X11FinderSelection.h"

#include "base/FileDescriptor.h"

#include <deque>
#include <mutex>

namespace vexmoor {

/// The thread that queries selections.
class X11FinderSelection::Loop {
  public:
    using Answer = std::function<void(SelectionResult)>;

    /// Returns null if the display cannot be opened.
    static std::unique_ptr<Loop> open(const QDBusConnection& session,
                                      std::function<void(std::uint8_t)> willPress,
                                      std::atomic<bool>& userActed);

    /// Thread-safe. The answer is called on the loop's thread.
    void ask(Answer answer);
    void end();

    void run(const std::function<void()>& waitForRelease);

  private:
    Loop(const QDBusConnection& session, std::function<void(std::uint8_t)> willPress,
         std::atomic<bool>& userActed);

    bool open();
    void wait();
    [[nodiscard]] Answer nextQuestion();
    SelectionResult ask();
    bool copy(const x11::FileManagerWindow& window, x11::CopyKey& key);
    [[nodiscard]] bool ownerChanges(xcb_window_t window);
    SelectionResult takeCopy();
    void saveForLater();
    [[nodiscard]] bool hasOwner(xcb_atom_t selection) const;
    void take(const xcb_generic_event_t& event);

    QDBusConnection m_session;
    std::function<void(std::uint8_t)> m_willPress;
    std::atomic<bool>& m_userActed;
    std::unique_ptr<x11::XConnection> m_connection;
    x11::Keyboard m_keyboard;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_atom_t m_clipboard = XCB_ATOM_NONE;
    std::uint8_t m_ownerEvent = 0;
    std::optional<x11::SelectionReader> m_reader;
    std::optional<x11::SelectionOwner> m_owner;
    FileDescriptor m_wake;

    std::mutex m_mutex; ///< guards the members below
    std::deque<Answer> m_questions;
    bool m_ends = false;
};

} // namespace vexmoor
