#pragma once

#include "FileManagerWindows.h"
#include "Keyboard.h"
#include "KeyGrabs.h"
#include "X11EventTap.h"
#include "XConnection.h"

#include "base/FileDescriptor.h"

#include <xcb/xinput.h>

#include <atomic>
#include <mutex>
#include <set>

namespace vexmoor {

/// Requests of other threads to the tap's thread.
class X11EventTap::Requests {
  public:
    Requests();

    std::atomic<bool> ends = false;
    std::atomic<bool> refreshes = false;
    std::atomic<bool> capturesUndoKey = false;

    /// Locked from a captured press until the server has released the keyboard.
    std::mutex answering;

    /// Wakes the loop so that it reads the requests.
    void wake() const;
    /// Becomes readable after wake().
    [[nodiscard]] int descriptor() const { return m_event.get(); }
    void clear() const;

    void ignoreNext(xcb_keycode_t key);
    /// Returns true and consumes one entry if the next press of the key is to be ignored.
    bool ignores(xcb_keycode_t key);

  private:
    FileDescriptor m_event;
    std::mutex m_mutex;
    std::multiset<xcb_keycode_t> m_ignored;
};

/// The tap's thread: handles the server's events until it is stopped.
class X11EventTap::Loop {
  public:
    /// Returns null if the display cannot be opened or lacks an extension. Parts and requests must
    /// outlive the loop.
    static std::unique_ptr<Loop> open(const Parts& parts, Requests& requests, Handler handler);

    void run();

    /// Queries the server. Called by the handler in run().
    bool fileManagerIsActive() { return x11::activeFileManager(*m_connection).has_value(); }

  private:
    Loop(const Parts& parts, Requests& requests, Handler handler);

    bool open();
    void wait();
    void applyRequests();
    void take(const xcb_generic_event_t& event);
    void takeRaw(const xcb_ge_generic_event_t& event);
    void takeRawKey(xcb_keycode_t key);
    void takeRawModifier(xcb_keycode_t key, bool isDown);
    void takeRawButton(std::uint32_t button);
    void takeGrabbedKey(const xcb_key_press_event_t& event);
    void observe(xcb_keycode_t key);
    void flushUnanswered();
    void windowChanged();
    void holdGrabs();
    [[nodiscard]] bool bindsKeyItself() const;
    void readHeldModifiers();
    [[nodiscard]] std::uint16_t modifiers() const;

    const Parts& m_parts;
    Requests& m_requests;
    Handler m_handler;
    std::unique_ptr<x11::XConnection> m_connection;
    x11::Keyboard m_keyboard;
    std::optional<x11::KeyGrabs> m_grabs;
    std::uint8_t m_inputExtension = 0;
    std::optional<x11::FileManagerWindow> m_active;
    bool m_capturesUndoKey = false;
    bool m_reportedHeldKey = false;
    std::set<xcb_keycode_t> m_heldModifiers;
    /// A pressed key that is grabbed with Ctrl, until it is known whether the grab captured it.
    std::optional<xcb_keycode_t> m_unanswered;
};

} // namespace vexmoor
