#pragma once

#include "SelectionData.h"
#include "XConnection.h"

#include <functional>

namespace vexmoor::x11 {

/// Reads other programs' selections, including incremental ones (INCR). Not thread-safe.
class SelectionReader {
  public:
    /// `takeOther` receives events that do not concern reading. The window must belong to this
    /// program and select property changes.
    SelectionReader(XConnection& connection, xcb_window_t window,
                    std::function<void(const xcb_generic_event_t&)> takeOther);

    /// Returns the next event that `isWanted` accepts, or null at the deadline.
    Event waitFor(const std::function<bool(const xcb_generic_event_t&)>& isWanted,
                  std::chrono::steady_clock::time_point deadline);

    /// Returns nullopt if the owner does not reply in time or the data exceeds `most` bytes.
    std::optional<SelectionData> read(xcb_atom_t selection, xcb_atom_t target, std::size_t most);

    /// Reads all targets that the owner converts in time, at most `most` bytes in total.
    SelectionContent readAll(xcb_atom_t selection, std::size_t most);

  private:
    std::optional<SelectionData> takeProperty();
    std::optional<SelectionData> readPieces(SelectionData data, std::size_t most);

    XConnection& m_connection;
    xcb_window_t m_window;
    std::function<void(const xcb_generic_event_t&)> m_takeOther;
};

} // namespace vexmoor::x11
