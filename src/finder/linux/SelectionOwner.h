#pragma once

#include "SelectionData.h"
#include "XConnection.h"

#include <list>

namespace vexmoor::x11 {

/// Owns a selection and converts its content for requestors, incrementally if it is long (ICCCM,
/// section 2). Not thread-safe.
class SelectionOwner {
  public:
    /// The window must belong to this program and select property changes.
    SelectionOwner(XConnection& connection, xcb_window_t window, xcb_atom_t selection);

    /// Takes ownership with this content. With empty content, releases the ownership.
    void own(SelectionContent content);

    [[nodiscard]] bool owns() const { return m_owns; }
    [[nodiscard]] const SelectionContent& content() const { return m_content; }

    /// True while an incremental transfer is in progress.
    [[nodiscard]] bool isTransferring() const { return !m_transfers.empty(); }

    /// Handles the event if it concerns the selection.
    void take(const xcb_generic_event_t& event);

  private:
    /// An incremental transfer.
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        SelectionData data;
        std::size_t sent = 0;
    };

    void answer(const xcb_selection_request_event_t& request);
    bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool convertMultiple(const xcb_selection_request_event_t& request);
    void sendPiece(const xcb_property_notify_event_t& event);
    [[nodiscard]] std::vector<xcb_atom_t> targets();

    XConnection& m_connection;
    xcb_window_t m_window;
    xcb_atom_t m_selection;
    bool m_owns = false;
    SelectionContent m_content;
    std::list<Transfer> m_transfers;
};

} // namespace vexmoor::x11
