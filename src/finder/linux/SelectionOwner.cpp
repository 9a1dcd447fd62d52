#include "SelectionOwner.h"

#include <algorithm>
#include <utility>

namespace vexmoor::x11 {

namespace {

constexpr std::size_t kPiece = 128 * 1024; ///< bytes; below each server's maximum request size
constexpr std::size_t kMostTransfers = 16;

void writeProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                   xcb_atom_t type, std::uint8_t format, std::string_view bytes) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, format,
                        static_cast<std::uint32_t>(bytes.size() / (format / 8u)), bytes.data());
}

} // namespace

SelectionOwner::SelectionOwner(XConnection& connection, xcb_window_t window, xcb_atom_t selection)
    : m_connection(connection), m_window(window), m_selection(selection) {}

void SelectionOwner::own(SelectionContent content) {
    m_content = std::move(content);
    xcb_set_selection_owner(m_connection.get(), m_window, m_selection, XCB_CURRENT_TIME);
    m_owns = !m_content.empty();
    if (!m_owns)
        xcb_set_selection_owner(m_connection.get(), XCB_WINDOW_NONE, m_selection, XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

void SelectionOwner::take(const xcb_generic_event_t& event) {
    constexpr int kSentByClient = 0x80;
    switch (event.response_type & ~kSentByClient) {
    case XCB_SELECTION_REQUEST:
        answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
        break;
    case XCB_SELECTION_CLEAR:
        if (reinterpret_cast<const xcb_selection_clear_event_t&>(event).selection == m_selection) {
            m_owns = false;
            m_content.clear();
        }
        break;
    case XCB_PROPERTY_NOTIFY:
        sendPiece(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_DESTROY_NOTIFY:
        m_transfers.remove_if([&](const Transfer& transfer) {
            return transfer.requestor ==
                   reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        });
        break;
    default:
        break;
    }
    xcb_flush(m_connection.get());
}

void SelectionOwner::answer(const xcb_selection_request_event_t& request) {
    // Obsolete clients specify no property.
    const xcb_atom_t property =
        request.property == XCB_ATOM_NONE ? request.target : request.property;
    bool isDone = false;
    if (m_owns && request.selection == m_selection)
        isDone = request.target == m_connection.atom("MULTIPLE")
                     ? convertMultiple(request)
                     : convert(request.requestor, request.target, property);
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = isDone ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    xcb_send_event(m_connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notify));
}

std::vector<xcb_atom_t> SelectionOwner::targets() {
    std::vector<xcb_atom_t> all{m_connection.atom("TARGETS"), m_connection.atom("MULTIPLE")};
    for (const auto& data : m_content)
        all.push_back(data.target);
    return all;
}

bool SelectionOwner::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
    if (target == m_connection.atom("TARGETS")) {
        const auto all = targets();
        writeProperty(m_connection.get(), requestor, property, XCB_ATOM_ATOM, 32,
                      {reinterpret_cast<const char*>(all.data()), all.size() * sizeof(xcb_atom_t)});
        return true;
    }
    const auto data = std::ranges::find(m_content, target, &SelectionData::target);
    if (data == m_content.end())
        return false;
    if (data->bytes.size() <= kPiece) {
        writeProperty(m_connection.get(), requestor, property, data->type, data->format,
                      data->bytes);
        return true;
    }
    if (m_transfers.size() == kMostTransfers)
        m_transfers.pop_front(); // its requestor stopped reading
    m_transfers.push_back({requestor, property, *data});
    constexpr std::uint32_t kEvents =
        XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), requestor, XCB_CW_EVENT_MASK, &kEvents);
    const auto size = static_cast<std::uint32_t>(data->bytes.size());
    writeProperty(m_connection.get(), requestor, property, m_connection.atom("INCR"), 32,
                  {reinterpret_cast<const char*>(&size), sizeof size});
    return true;
}

/// The property contains pairs of target and property; the property of a failed pair is set to
/// None.
bool SelectionOwner::convertMultiple(const xcb_selection_request_event_t& request) {
    if (request.property == XCB_ATOM_NONE)
        return false;
    auto pairs = m_connection.numbers(request.requestor, request.property);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2)
        if (!convert(request.requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = XCB_ATOM_NONE;
    writeProperty(
        m_connection.get(), request.requestor, request.property, m_connection.atom("ATOM_PAIR"), 32,
        {reinterpret_cast<const char*>(pairs.data()), pairs.size() * sizeof(std::uint32_t)});
    return true;
}

/// The requestor deletes the property after reading it; an empty piece marks the end.
void SelectionOwner::sendPiece(const xcb_property_notify_event_t& event) {
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto transfer = std::ranges::find_if(m_transfers, [&](const Transfer& one) {
        return one.requestor == event.window && one.property == event.atom;
    });
    if (transfer == m_transfers.end())
        return;
    const auto piece = std::string_view(transfer->data.bytes).substr(transfer->sent, kPiece);
    writeProperty(m_connection.get(), transfer->requestor, transfer->property, transfer->data.type,
                  transfer->data.format, piece);
    transfer->sent += piece.size();
    if (piece.empty())
        m_transfers.erase(transfer);
}

} // namespace vexmoor::x11
