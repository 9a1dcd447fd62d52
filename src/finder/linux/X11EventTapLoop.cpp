#include "X11EventTapLoop.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace vexmoor {

namespace {

using x11::Reply;
using Type = InputEvent::Type;

constexpr int kRetryMilliseconds = 2000;

std::uint64_t flagsOf(std::uint16_t state) {
    std::uint64_t flags = 0;
    flags |= (state & XCB_MOD_MASK_SHIFT) != 0 ? InputEvent::kShift : 0;
    flags |= (state & XCB_MOD_MASK_CONTROL) != 0 ? InputEvent::kCommand : 0;
    flags |= (state & XCB_MOD_MASK_1) != 0 ? InputEvent::kOption : 0;
    flags |= (state & XCB_MOD_MASK_4) != 0 ? InputEvent::kControl : 0;
    return flags;
}

/// Buttons 4 to 7 are the wheel.
std::optional<Type> typeOfButton(std::uint32_t button) {
    constexpr std::uint32_t kFirstOfWheel = 4;
    constexpr std::uint32_t kLastOfWheel = 7;
    if (button >= kFirstOfWheel && button <= kLastOfWheel)
        return std::nullopt;
    return button == 1   ? Type::leftMouseDown
           : button == 3 ? Type::rightMouseDown
                         : Type::otherMouseDown;
}

std::uint8_t openInputExtension(xcb_connection_t* connection) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return 0;
    // Since XInput 2.2, raw events are also delivered during other clients' grabs.
    const Reply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    const bool isNewEnough = version && (version->major_version > 2 || version->minor_version >= 2);
    return isNewEnough ? extension->major_opcode : std::uint8_t{0};
}

void selectRawEvents(xcb_connection_t* connection, xcb_window_t root) {
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t mask = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS |
                             XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
                             XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    } wanted;
    xcb_input_xi_select_events(connection, root, 1, &wanted.head);
}

} // namespace

X11EventTap::Requests::Requests() : m_event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void X11EventTap::Requests::wake() const {
    const std::uint64_t one = 1;
    (void)!::write(m_event.get(), &one, sizeof one); // fails only if the event is already signalled
}

void X11EventTap::Requests::clear() const {
    std::uint64_t count = 0;
    (void)!::read(m_event.get(), &count, sizeof count);
}

void X11EventTap::Requests::ignoreNext(xcb_keycode_t key) {
    const std::lock_guard lock(m_mutex);
    m_ignored.insert(key);
}

bool X11EventTap::Requests::ignores(xcb_keycode_t key) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_ignored.find(key);
    if (found == m_ignored.end())
        return false;
    m_ignored.erase(found);
    return true;
}

X11EventTap::Loop::Loop(const Parts& parts, Requests& requests, Handler handler)
    : m_parts(parts), m_requests(requests), m_handler(std::move(handler)) {}

std::unique_ptr<X11EventTap::Loop> X11EventTap::Loop::open(const Parts& parts, Requests& requests,
                                                           Handler handler) {
    std::unique_ptr<Loop> loop(new Loop(parts, requests, std::move(handler)));
    return loop->open() ? std::move(loop) : nullptr;
}

bool X11EventTap::Loop::open() {
    m_connection = x11::XConnection::open();
    if (!m_connection)
        return false;
    m_inputExtension = openInputExtension(m_connection->get());
    if (m_inputExtension == 0 || !m_keyboard.open(*m_connection))
        return false;
    m_grabs.emplace(*m_connection);
    selectRawEvents(m_connection->get(), m_connection->root());
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection->get(), m_connection->root(), XCB_CW_EVENT_MASK,
                                 &kEvents);
    readHeldModifiers();
    windowChanged();
    return true;
}

void X11EventTap::Loop::run() {
    while (!m_requests.ends && !m_connection->isBroken()) {
        applyRequests();
        // Requests may have queued events on the connection; wait only when the queue is empty.
        bool tookAny = false;
        while (const x11::Event event{xcb_poll_for_event(m_connection->get())}) {
            take(*event);
            tookAny = true;
        }
        if (!tookAny)
            wait();
    }
}

void X11EventTap::Loop::wait() {
    xcb_flush(m_connection->get());
    pollfd inputs[] = {{.fd = m_connection->descriptor(), .events = POLLIN, .revents = 0},
                       {.fd = m_requests.descriptor(), .events = POLLIN, .revents = 0}};
    const int ready =
        ::poll(inputs, std::size(inputs), m_grabs->isComplete() ? -1 : kRetryMilliseconds);
    if (ready == 0)
        holdGrabs();
    if ((inputs[1].revents & POLLIN) != 0)
        m_requests.clear();
}

void X11EventTap::Loop::applyRequests() {
    const bool captures = m_requests.capturesUndoKey;
    const bool changes = std::exchange(m_capturesUndoKey, captures) != captures;
    if (m_requests.refreshes.exchange(false) || changes)
        holdGrabs();
}

void X11EventTap::Loop::take(const xcb_generic_event_t& event) {
    constexpr int kSentByClient = 0x80;
    switch (event.response_type & ~kSentByClient) {
    case XCB_KEY_PRESS:
        takeGrabbedKey(reinterpret_cast<const xcb_key_press_event_t&>(event));
        break;
    case XCB_GE_GENERIC:
        takeRaw(reinterpret_cast<const xcb_ge_generic_event_t&>(event));
        break;
    case XCB_PROPERTY_NOTIFY:
        if (reinterpret_cast<const xcb_property_notify_event_t&>(event).atom ==
            m_connection->atom("_NET_ACTIVE_WINDOW"))
            windowChanged();
        break;
    default:
        if (m_keyboard.follow(event))
            holdGrabs();
    }
}

void X11EventTap::Loop::takeRaw(const xcb_ge_generic_event_t& event) {
    if (event.extension != m_inputExtension)
        return;
    const auto detail = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
    const auto key = static_cast<xcb_keycode_t>(detail);
    const bool isKeyPress = event.event_type == XCB_INPUT_RAW_KEY_PRESS;
    if (event.event_type == XCB_INPUT_RAW_BUTTON_PRESS)
        takeRawButton(detail);
    else if (m_keyboard.modifiersOf(key) != 0)
        takeRawModifier(key, isKeyPress);
    else if (isKeyPress)
        takeRawKey(key);
}

void X11EventTap::Loop::takeRawModifier(xcb_keycode_t key, bool isDown) {
    if (isDown)
        m_heldModifiers.insert(key);
    else
        m_heldModifiers.erase(key);
}

void X11EventTap::Loop::readHeldModifiers() {
    const Reply<xcb_query_keymap_reply_t> held(xcb_query_keymap_reply(
        m_connection->get(), xcb_query_keymap(m_connection->get()), nullptr));
    for (unsigned key = 0; held && key < 8 * std::size(held->keys); ++key)
        if ((held->keys[key / 8] >> (key % 8) & 1) != 0)
            takeRawModifier(static_cast<xcb_keycode_t>(key), true);
    std::erase_if(m_heldModifiers,
                  [this](xcb_keycode_t key) { return m_keyboard.modifiersOf(key) == 0; });
}

/// If the grab captures the key, its event follows. Repeats have no raw event.
void X11EventTap::Loop::takeRawKey(xcb_keycode_t key) {
    if (m_requests.ignores(key))
        return;
    flushUnanswered();
    if (m_grabs->isHeld(key)) {
        m_unanswered = key;
        return;
    }
    m_parts.userActed();
    observe(key);
}

void X11EventTap::Loop::takeRawButton(std::uint32_t button) {
    const auto type = typeOfButton(button);
    if (!type)
        return;
    flushUnanswered();
    m_parts.userActed();
    m_handler({.type = *type, .canBeSwallowed = false});
}

void X11EventTap::Loop::flushUnanswered() {
    if (const auto key = std::exchange(m_unanswered, std::nullopt))
        m_handler({.canBeSwallowed = false});
}

void X11EventTap::Loop::observe(xcb_keycode_t key) {
    InputEvent event{.canBeSwallowed = false};
    if (bindsKeyItself() && std::ranges::count(m_keyboard.keysOf(XKB_KEY_BackSpace), key) > 0) {
        event.keyCode = InputEvent::kBackspace;
        event.flags = flagsOf(modifiers());
    }
    m_handler(event);
}

void X11EventTap::Loop::takeGrabbedKey(const xcb_key_press_event_t& event) {
    const std::lock_guard lock(m_requests.answering);
    const xcb_keycode_t key = event.detail;
    const bool isBackspace = std::ranges::count(m_keyboard.keysOf(XKB_KEY_BackSpace), key) > 0;
    InputEvent press{.keyCode = isBackspace ? InputEvent::kBackspace : InputEvent::kZ,
                     .flags = flagsOf(event.state),
                     .isRepeat = m_unanswered != key,
                     .characters = m_keyboard.letterOf(key, event.state)};
    m_unanswered.reset();
    const bool swallows = m_handler(press) == Verdict::swallow;
    applyRequests(); // applies what the handler wants to capture before the next key press
    xcb_allow_events(m_connection->get(),
                     swallows ? XCB_ALLOW_ASYNC_KEYBOARD : XCB_ALLOW_REPLAY_KEYBOARD,
                     XCB_CURRENT_TIME);
    // Keys synthesised from now on go to the file manager instead of this grab.
    if (swallows) {
        xcb_ungrab_keyboard(m_connection->get(), XCB_CURRENT_TIME);
        m_connection->sync();
    }
    xcb_flush(m_connection->get());
}

void X11EventTap::Loop::windowChanged() {
    const auto before = std::exchange(m_active, x11::activeFileManager(*m_connection));
    if (m_active == before)
        return;
    m_parts.fileManagerActivated(m_active ? m_active->process : std::nullopt);
    holdGrabs();
}

bool X11EventTap::Loop::bindsKeyItself() const {
    return m_active && m_parts.bindsKeyItself(*m_active->manager, m_active->process);
}

void X11EventTap::Loop::holdGrabs() {
    std::vector<xcb_keycode_t> keys;
    const auto add = [&](xkb_keysym_t symbol) {
        const auto found = m_keyboard.keysOf(symbol);
        keys.insert(keys.end(), found.begin(), found.end());
    };
    if (m_active && !bindsKeyItself())
        add(XKB_KEY_BackSpace);
    if (m_active && m_capturesUndoKey)
        add(XKB_KEY_z);
    m_grabs->hold(m_keyboard, keys);
    if (!m_grabs->isComplete() && !std::exchange(m_reportedHeldKey, true))
        m_parts.keyIsHeld();
}

/// Uses the tracked modifiers, because the server's state may already include later events.
std::uint16_t X11EventTap::Loop::modifiers() const {
    unsigned state = 0;
    for (const xcb_keycode_t key : m_heldModifiers)
        state |= m_keyboard.modifiersOf(key);
    return static_cast<std::uint16_t>(state);
}

} // namespace vexmoor
