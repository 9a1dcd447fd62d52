#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace vexmoor::x11 {

/// The data of one target of a selection (ICCCM, section 2).
struct SelectionData {
    xcb_atom_t target = XCB_ATOM_NONE;
    xcb_atom_t type = XCB_ATOM_NONE;
    std::uint8_t format = 8; ///< bits per unit: 8, 16 or 32
    std::string bytes{};
};

using SelectionContent = std::vector<SelectionData>;

} // namespace vexmoor::x11
