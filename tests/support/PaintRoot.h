#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

// Header only, since not all tests link xcb.

namespace vexmoor::test {

/// Paints the root window in one colour and announces it to compositors.
inline void paintRoot(xcb_connection_t* x, std::uint32_t rgb) {
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
    const xcb_pixmap_t pixmap = xcb_generate_id(x);
    xcb_create_pixmap(x, screen->root_depth, pixmap, screen->root, 1, 1);
    const xcb_gcontext_t context = xcb_generate_id(x);
    xcb_create_gc(x, context, pixmap, XCB_GC_FOREGROUND, &rgb);
    const xcb_rectangle_t whole{0, 0, 1, 1};
    xcb_poly_fill_rectangle(x, pixmap, context, 1, &whole);
    for (const char* name :
         {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"}) { // the properties that compositors read
        const auto length = static_cast<std::uint16_t>(std::strlen(name));
        xcb_intern_atom_reply_t* const atom =
            xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, length, name), nullptr);
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, screen->root, atom->atom, XCB_ATOM_PIXMAP, 32,
                            1, &pixmap);
        std::free(atom);
    }
    xcb_change_window_attributes(x, screen->root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(x, 0, screen->root, 0, 0, 0, 0);
    xcb_flush(x);
}

} // namespace vexmoor::test
