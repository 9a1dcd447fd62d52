#include "dock/SelectionOwner.h"

#include "X11Connection.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

namespace vexmoor {
namespace {

using x11::connection;

/// Selects the event that reports a selection's owners and returns its number; -1 if that is
/// not supported.
int watchOwner(xcb_atom_t selection) {
    const xcb_query_extension_reply_t* const extension =
        xcb_get_extension_data(connection(), &xcb_xfixes_id);
    if (!extension || !extension->present)
        return -1;
    const auto cookie = xcb_xfixes_query_version(connection(), 1, 0);
    const x11::Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(connection(), cookie, nullptr));
    if (!version)
        return -1;
    // The mask equals Qt's for the same window, because one connection has only one mask.
    xcb_xfixes_select_selection_input(connection(), x11::root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    return extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
}

bool hasOwner(xcb_atom_t selection) {
    const auto cookie = xcb_get_selection_owner(connection(), selection);
    const x11::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection(), cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

SelectionOwner::SelectionOwner(const char* selection, QObject* parent) : QObject(parent) {
    if (!connection())
        return;
    m_selection = x11::atom(selection);
    m_ownerEvent = watchOwner(m_selection);
    m_owned = hasOwner(m_selection);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

SelectionOwner::~SelectionOwner() {
    if (auto* const application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool SelectionOwner::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto* const event = static_cast<xcb_generic_event_t*>(message);
    constexpr int kSentByClient = 0x80;
    if ((event->response_type & ~kSentByClient) == m_ownerEvent) {
        const auto* const notice =
            reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event);
        if (notice->selection == m_selection)
            setOwned(notice->owner != XCB_WINDOW_NONE);
    }
    return false;
}

void SelectionOwner::setOwned(bool owned) {
    if (m_owned == owned)
        return;
    m_owned = owned;
    emit ownedChanged(owned);
}

} // namespace vexmoor
