#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace vexmoor::x11 {

/// What the owner of a selection gives for one target (ICCCM, section 2).
struct SelectionData {
    xcb_atom_t target = XCB_ATOM_NONE;
    xcb_atom_t type = XCB_ATOM_NONE;
    std::uint8_t format = 8; ///< bits a unit: 8, 16 or 32
    std::string bytes{};
};

using SelectionContent = std::vector<SelectionData>;

} // namespace vexmoor::x11
