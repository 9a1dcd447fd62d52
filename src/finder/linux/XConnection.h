#pragma once

#include "dock/linux/X11Connection.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor::x11 {

using Event = Reply<xcb_generic_event_t>;

/// Our own connection to the X display, separate from Qt's. Not thread-safe.
class XConnection {
  public:
    /// Returns null if the display (default: DISPLAY) cannot be opened.
    static std::unique_ptr<XConnection> open(const char* display = nullptr);
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;
    ~XConnection();

    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] bool isBroken() const { return xcb_connection_has_error(m_connection) != 0; }
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(m_connection); }

    /// Returns the atom; queries the server once per name.
    xcb_atom_t atom(const std::string& name);
    [[nodiscard]] std::string atomName(xcb_atom_t atom) const;

    /// Returns the next event, or null at the deadline.
    [[nodiscard]] Event waitForEvent(std::chrono::steady_clock::time_point deadline) const;

    /// Returns the property's bytes of any type, up to 64 KiB; empty if there is no such property.
    [[nodiscard]] std::string bytes(xcb_window_t window, xcb_atom_t property) const;
    /// Reinterprets a property's bytes as 32-bit values.
    [[nodiscard]] static std::vector<std::uint32_t> numbersIn(std::string_view bytes);

    /// Returns the property's first 32-bit values.
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window,
                                                     xcb_atom_t property) const;

    /// Waits until the server has processed all requests.
    void sync() const;

  private:
    explicit XConnection(xcb_connection_t* connection);

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace vexmoor::x11
