#include "DeviceKeyboard.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <iterator>
#include <stdexcept>

namespace vexmoor::test {
namespace {

std::uint8_t idOfDevice(const x11::XConnection& connection, const std::string& name) {
    const x11::Reply<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        connection.get(), xcb_input_xi_query_device(connection.get(), XCB_INPUT_DEVICE_ALL),
        nullptr));
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem > 0;
         xcb_input_xi_device_info_next(&device))
        if (std::string(xcb_input_xi_device_info_name(device.data), device.data->name_len) == name)
            return static_cast<std::uint8_t>(device.data->deviceid);
    throw std::runtime_error("there is no " + name);
}

} // namespace

DeviceKeyboard::DeviceKeyboard(const std::string& display)
    : m_connection(x11::XConnection::open(display.c_str())) {
    if (!m_connection || !m_keyboard.open(*m_connection))
        throw std::runtime_error("the display has no keyboard");
    m_firstEvent = xcb_get_extension_data(m_connection->get(), &xcb_input_id)->first_event;
    const x11::Reply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        m_connection->get(), xcb_input_xi_query_version(m_connection->get(), 2, 2), nullptr));
    m_device = idOfDevice(*m_connection, "Xvfb keyboard");
}

void DeviceKeyboard::press(std::initializer_list<const char*> keys) {
    for (const char* key : keys)
        hold(key);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        release(*key);
}

void DeviceKeyboard::change(const char* key, bool isDown) {
    while (const x11::Event event{xcb_poll_for_event(m_connection->get())})
        m_keyboard.follow(*event);
    const auto code = m_keyboard.keyOf(xkb_keysym_from_name(key, XKB_KEYSYM_NO_FLAGS));
    if (!code)
        throw std::runtime_error(std::string("no key gives ") + key);
    const auto type = static_cast<std::uint8_t>(
        m_firstEvent + (isDown ? XCB_INPUT_DEVICE_KEY_PRESS : XCB_INPUT_DEVICE_KEY_RELEASE));
    xcb_test_fake_input(m_connection->get(), type, *code, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0,
                        m_device);
    m_connection->sync();
}

} // namespace vexmoor::test
