#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace vexmoor::x11 {

/// Returns Qt's connection, or null if Qt does not run on X11.
xcb_connection_t* connection();
xcb_window_t root();
xcb_atom_t atom(const char* name);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
/// An xcb reply; null if the request failed.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

} // namespace vexmoor::x11
