#include "SelectionReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vexmoor::x11 {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kAnswer{500}; ///< timeout for a reply and for each piece of one
constexpr std::chrono::seconds kWhole{5};         ///< timeout for all targets together
constexpr const char* kProperty = "VEXMOOR_SELECTION";

/// Targets that are requests or metadata instead of content.
constexpr std::array kNoData{"TARGETS", "MULTIPLE",         "TIMESTAMP",      "SAVE_TARGETS",
                             "DELETE",  "INSERT_SELECTION", "INSERT_PROPERTY"};

std::uint8_t typeOf(const xcb_generic_event_t& event) {
    constexpr int kSentByClient = 0x80;
    return static_cast<std::uint8_t>(event.response_type & ~kSentByClient);
}

} // namespace

SelectionReader::SelectionReader(XConnection& connection, xcb_window_t window,
                                 std::function<void(const xcb_generic_event_t&)> takeOther)
    : m_connection(connection), m_window(window), m_takeOther(std::move(takeOther)) {}

Event SelectionReader::waitFor(const std::function<bool(const xcb_generic_event_t&)>& isWanted,
                               Clock::time_point deadline) {
    while (Event event = m_connection.waitForEvent(deadline)) {
        if (isWanted(*event))
            return event;
        m_takeOther(*event);
    }
    return nullptr;
}

/// Reads the owner's property and deletes it, which requests the next piece.
std::optional<SelectionData> SelectionReader::takeProperty() {
    constexpr std::uint32_t kAll = 0x1FFFFFFF; // 32-bit units
    const auto cookie =
        xcb_get_property(m_connection.get(), 1, m_window, m_connection.atom(kProperty),
                         XCB_GET_PROPERTY_TYPE_ANY, 0, kAll);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE)
        return std::nullopt;
    return SelectionData{XCB_ATOM_NONE,
                         reply->type,
                         reply->format,
                         {static_cast<const char*>(xcb_get_property_value(reply.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))}};
}

std::optional<SelectionData> SelectionReader::read(xcb_atom_t selection, xcb_atom_t target,
                                                   std::size_t most) {
    const xcb_atom_t property = m_connection.atom(kProperty);
    xcb_delete_property(m_connection.get(), m_window, property);
    xcb_convert_selection(m_connection.get(), m_window, selection, target, property,
                          XCB_CURRENT_TIME);
    const Event answer = waitFor(
        [&](const xcb_generic_event_t& event) {
            const auto& notify = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
            return typeOf(event) == XCB_SELECTION_NOTIFY && notify.requestor == m_window &&
                   notify.selection == selection && notify.target == target;
        },
        Clock::now() + kAnswer);
    if (!answer ||
        reinterpret_cast<const xcb_selection_notify_event_t&>(*answer).property == XCB_ATOM_NONE)
        return std::nullopt;
    auto data = takeProperty();
    if (data && data->type == m_connection.atom("INCR"))
        data = readPieces({.target = target}, most);
    if (!data || data->bytes.size() > most)
        return std::nullopt;
    data->target = target;
    return data;
}

std::optional<SelectionData> SelectionReader::readPieces(SelectionData data, std::size_t most) {
    const xcb_atom_t property = m_connection.atom(kProperty);
    const auto isPiece = [&](const xcb_generic_event_t& event) {
        const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return typeOf(event) == XCB_PROPERTY_NOTIFY && notify.window == m_window &&
               notify.atom == property && notify.state == XCB_PROPERTY_NEW_VALUE;
    };
    while (data.bytes.size() <= most) {
        if (!waitFor(isPiece, Clock::now() + kAnswer))
            return std::nullopt;
        auto piece = takeProperty();
        if (!piece)
            continue; // the property that announced the incremental transfer
        if (piece->bytes.empty())
            return data;
        data.type = piece->type;
        data.format = piece->format;
        data.bytes += piece->bytes;
    }
    return std::nullopt;
}

SelectionContent SelectionReader::readAll(xcb_atom_t selection, std::size_t most) {
    SelectionContent content;
    const auto deadline = Clock::now() + kWhole;
    const auto offered = read(selection, m_connection.atom("TARGETS"), most);
    if (!offered)
        return content;
    for (const xcb_atom_t target : XConnection::numbersIn(offered->bytes)) {
        const bool isData = std::ranges::none_of(
            kNoData, [&](const char* name) { return m_connection.atom(name) == target; });
        const bool isKnown = std::ranges::count(content, target, &SelectionData::target) > 0;
        if (!isData || isKnown || Clock::now() >= deadline)
            continue;
        if (auto data = read(selection, target, most)) {
            most -= data->bytes.size();
            content.push_back(*std::move(data));
        }
    }
    return content;
}

} // namespace vexmoor::x11
