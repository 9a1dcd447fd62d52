#include "X11FinderSelectionLoop.h"

#include "DolphinCopy.h"

#include <xcb/xfixes.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <sstream>
#include <utility>

namespace vexmoor {

namespace {

using Clock = std::chrono::steady_clock;
using x11::Reply;

constexpr std::chrono::milliseconds kOwnerChange{300};
constexpr std::chrono::seconds kSaving{2};
constexpr std::size_t kMostBytes = 256u * 1024 * 1024; ///< maximum clipboard size

xcb_window_t makeWindow(const x11::XConnection& connection) {
    const xcb_window_t window = xcb_generate_id(connection.get());
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), -1, -1, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &kEvents);
    return window;
}

/// Returns the number of the XFIXES events that report selection owners; nullopt without the
/// extension.
std::optional<std::uint8_t> watchOwner(const x11::XConnection& connection, xcb_window_t window,
                                       xcb_atom_t selection) {
    const auto* const extension = xcb_get_extension_data(connection.get(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        return std::nullopt;
    const Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        connection.get(), xcb_xfixes_query_version(connection.get(), 1, 0), nullptr));
    if (!version)
        return std::nullopt;
    xcb_xfixes_select_selection_input(connection.get(), window, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    return static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

/// Parses a URI list (RFC 2483, section 5).
Selection selectionFromUris(const std::string& list) {
    Selection selection;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        while (!line.empty() && (line.back() == '\r' || line.back() == '\0'))
            line.pop_back();
        if (line.empty() || line.front() == '#')
            continue;
        if (auto path = pathFromFileUri(line))
            selection.items.push_back(*std::move(path));
        else
            ++selection.others;
    }
    return selection;
}

} // namespace

X11FinderSelection::Loop::Loop(const QDBusConnection& session,
                               std::function<void(std::uint8_t)> willPress,
                               std::atomic<bool>& userActed)
    : m_session(session), m_willPress(std::move(willPress)), m_userActed(userActed),
      m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

std::unique_ptr<X11FinderSelection::Loop>
X11FinderSelection::Loop::open(const QDBusConnection& session,
                               std::function<void(std::uint8_t)> willPress,
                               std::atomic<bool>& userActed) {
    std::unique_ptr<Loop> loop(new Loop(session, std::move(willPress), userActed));
    return loop->open() ? std::move(loop) : nullptr;
}

bool X11FinderSelection::Loop::open() {
    m_connection = x11::XConnection::open();
    if (!m_connection || !m_keyboard.open(*m_connection))
        return false;
    m_window = makeWindow(*m_connection);
    m_clipboard = m_connection->atom("CLIPBOARD");
    const auto event = watchOwner(*m_connection, m_window, m_clipboard);
    if (!event)
        return false;
    m_ownerEvent = *event;
    m_owner.emplace(*m_connection, m_window, m_clipboard);
    m_reader.emplace(*m_connection, m_window,
                     [this](const xcb_generic_event_t& other) { take(other); });
    return true;
}

void X11FinderSelection::Loop::take(const xcb_generic_event_t& event) {
    if (!m_keyboard.follow(event))
        m_owner->take(event);
}

void X11FinderSelection::Loop::ask(Answer answer) {
    const std::lock_guard lock(m_mutex);
    m_questions.push_back(std::move(answer));
    const std::uint64_t one = 1;
    (void)!::write(m_wake.get(), &one, sizeof one);
}

void X11FinderSelection::Loop::end() {
    const std::lock_guard lock(m_mutex);
    m_ends = true;
    const std::uint64_t one = 1;
    (void)!::write(m_wake.get(), &one, sizeof one);
}

X11FinderSelection::Loop::Answer X11FinderSelection::Loop::nextQuestion() {
    const std::lock_guard lock(m_mutex);
    if (m_questions.empty())
        return {};
    Answer next = std::move(m_questions.front());
    m_questions.pop_front();
    return next;
}

void X11FinderSelection::Loop::run(const std::function<void()>& waitForRelease) {
    for (;;) {
        while (const Answer answer = nextQuestion()) {
            waitForRelease();
            answer(ask());
        }
        while (const x11::Event event{xcb_poll_for_event(m_connection->get())})
            take(*event);
        {
            const std::lock_guard lock(m_mutex);
            if (m_ends || m_connection->isBroken())
                break;
        }
        wait();
    }
    saveForLater();
}

void X11FinderSelection::Loop::wait() {
    xcb_flush(m_connection->get());
    pollfd inputs[] = {{.fd = m_connection->descriptor(), .events = POLLIN, .revents = 0},
                       {.fd = m_wake.get(), .events = POLLIN, .revents = 0}};
    ::poll(inputs, std::size(inputs), -1);
    std::uint64_t count = 0;
    (void)!::read(m_wake.get(), &count, sizeof count);
}

SelectionResult X11FinderSelection::Loop::ask() {
    const auto window = x11::activateFileManager(*m_connection);
    if (!window)
        return SelectionError::failed;
    const bool hadOwner = hasOwner(m_clipboard);
    auto before = m_owner->owns() ? m_owner->content()
                  : hadOwner      ? m_reader->readAll(m_clipboard, kMostBytes)
                                  : x11::SelectionContent();
    m_userActed = false;
    x11::CopyKey key(*m_connection, m_keyboard, m_willPress);
    if (!copy(*window, key))
        return SelectionError::failed;
    if (!ownerChanges(window->id))
        return Selection(); // nothing is selected
    auto result = takeCopy();
    // This hint keeps clipboard managers from storing the restored content twice.
    if (!before.empty())
        before.push_back({m_connection->atom("x-kde-passwordManagerHint"),
                          m_connection->atom("UTF8_STRING"), 8, "secret"});
    m_owner->own(std::move(before));
    return result;
}

bool X11FinderSelection::Loop::copy(const x11::FileManagerWindow& window, x11::CopyKey& key) {
    return (window.manager->id == "dolphin" && window.process &&
            copyInDolphin(m_session, *window.process, window.id)) ||
           key.press();
}

/// Waits until the client of that window becomes the selection owner. Returns false if it does not,
/// or if the user did something else in the meantime. Ignores owner changes by other clients.
bool X11FinderSelection::Loop::ownerChanges(xcb_window_t window) {
    const std::uint32_t client = ~xcb_get_setup(m_connection->get())->resource_id_mask;
    constexpr int kSentByClient = 0x80;
    const x11::Event change = m_reader->waitFor(
        [&](const xcb_generic_event_t& event) {
            if ((event.response_type & ~kSentByClient) != m_ownerEvent)
                return false;
            const auto& notify =
                reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
            return notify.selection == m_clipboard && (notify.owner & client) == (window & client);
        },
        Clock::now() + kOwnerChange);
    return change != nullptr && !m_userActed;
}

/// If text was selected, the clipboard has no URIs.
SelectionResult X11FinderSelection::Loop::takeCopy() {
    const auto uris = m_reader->read(m_clipboard, m_connection->atom("text/uri-list"), kMostBytes);
    return uris ? selectionFromUris(uris->bytes) : Selection();
}

bool X11FinderSelection::Loop::hasOwner(xcb_atom_t selection) const {
    const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        m_connection->get(), xcb_get_selection_owner(m_connection->get(), selection), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

/// Saves the clipboard's content to the clipboard manager, if one runs (freedesktop.org clipboard
/// manager specification); otherwise it would be lost when this program exits.
void X11FinderSelection::Loop::saveForLater() {
    const xcb_atom_t manager = m_connection->atom("CLIPBOARD_MANAGER");
    if (m_connection->isBroken() || !m_owner->owns() || !hasOwner(manager))
        return;
    xcb_convert_selection(m_connection->get(), m_window, manager,
                          m_connection->atom("SAVE_TARGETS"),
                          m_connection->atom("VEXMOOR_SELECTION"), XCB_CURRENT_TIME);
    (void)m_reader->waitFor(
        [&](const xcb_generic_event_t& event) {
            constexpr int kSentByClient = 0x80;
            return (event.response_type & ~kSentByClient) == XCB_SELECTION_NOTIFY &&
                   reinterpret_cast<const xcb_selection_notify_event_t&>(event).selection ==
                       manager;
        },
        Clock::now() + kSaving);
}

} // namespace vexmoor
