#pragma once

#include "SelectionData.h"
#include "XConnection.h"

#include <functional>

namespace vexmoor::x11 {

/// Reads selections of other programs, in pieces too (INCR). One thread.
class SelectionReader {
  public:
    /// `takeOther` gets the events that are not about reading; the window is this program's own and
    /// selects property changes.
    SelectionReader(XConnection& connection, xcb_window_t window,
                    std::function<void(const xcb_generic_event_t&)> takeOther);

    /// The next event that `isWanted` accepts; null if none comes until the deadline.
    Event waitFor(const std::function<bool(const xcb_generic_event_t&)>& isWanted,
                  std::chrono::steady_clock::time_point deadline);

    /// nullopt if the owner does not give it in time, or it is longer than `most` bytes.
    std::optional<SelectionData> read(xcb_atom_t selection, xcb_atom_t target, std::size_t most);

    /// Everything that the owner offers and gives in time, `most` bytes in all.
    SelectionContent readAll(xcb_atom_t selection, std::size_t most);

  private:
    std::optional<SelectionData> takeProperty();
    std::optional<SelectionData> readPieces(SelectionData data, std::size_t most);

    XConnection& m_connection;
    xcb_window_t m_window;
    std::function<void(const xcb_generic_event_t&)> m_takeOther;
};

} // namespace vexmoor::x11
