#include "DropTarget.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <utility>

namespace vexmoor::wayland {
namespace {

constexpr const char* kUriList = "text/uri-list";
constexpr auto kCopy = WL_DATA_DEVICE_MANAGER_DND_ACTION_COPY;

DropTarget* self(void* data) {
    return static_cast<DropTarget*>(data);
}

} // namespace

const wl_data_offer_listener DropTarget::kOfferListener = [] {
    wl_data_offer_listener listener{};
    listener.offer = [](void* data, wl_data_offer*, const char* type) {
        if (std::string_view(type) == kUriList)
            static_cast<Offer*>(data)->hasUris = true;
    };
    listener.source_actions = [](void*, wl_data_offer*, std::uint32_t) {};
    listener.action = [](void* data, wl_data_offer*, std::uint32_t action) {
        static_cast<Offer*>(data)->action = action;
    };
    return listener;
}();

const wl_data_device_listener DropTarget::kListener = [] {
    wl_data_device_listener listener{};
    listener.data_offer = [](void* data, wl_data_device*, wl_data_offer* offer) {
        self(data)->m_announced = std::make_unique<Offer>();
        self(data)->m_announced->proxy.reset(offer);
        wl_data_offer_add_listener(offer, &kOfferListener, self(data)->m_announced.get());
    };
    listener.enter = [](void* data, wl_data_device*, std::uint32_t serial, wl_surface* surface,
                        wl_fixed_t, wl_fixed_t,
                        wl_data_offer* offer) { self(data)->enter(serial, surface, offer); };
    listener.leave = [](void* data, wl_data_device*) { self(data)->leave(); };
    listener.motion = [](void*, wl_data_device*, std::uint32_t, wl_fixed_t, wl_fixed_t) {};
    listener.drop = [](void* data, wl_data_device*) { self(data)->drop(); };
    listener.selection = [](void* data, wl_data_device*, wl_data_offer*) {
        self(data)->m_announced.reset();
    };
    return listener;
}();

DropTarget::DropTarget(WaylandConnection& connection)
    : m_connection(connection), m_device(wl_data_device_manager_get_data_device(
                                    connection.dataDevices(), connection.seat())) {
    wl_data_device_add_listener(m_device.get(), &kListener, this);
}

DropTarget::~DropTarget() = default;

void DropTarget::enter(std::uint32_t serial, wl_surface* surface, wl_data_offer* offer) {
    m_dragged = std::exchange(m_announced, nullptr);
    if (!m_dragged || offer != m_dragged->proxy.get())
        return;
    wl_data_offer_accept(offer, serial, m_dragged->hasUris ? kUriList : nullptr);
    if (m_dragged->hasUris) {
        wl_data_offer_set_actions(offer, kCopy, kCopy);
        emit hovered(surface);
    }
    m_connection.flush();
}

void DropTarget::leave() {
    if (std::exchange(m_dragged, nullptr))
        emit hovered(nullptr);
}

void DropTarget::drop() {
    auto offer = std::exchange(m_dragged, nullptr);
    emit hovered(nullptr);
    if (!offer || !offer->hasUris)
        return;
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) {
        emit dropped(std::nullopt);
        return;
    }
    wl_data_offer_receive(offer->proxy.get(), kUriList, pipe[1]);
    m_connection.flush();
    close(pipe[1]);
    if (m_reader) // the previous sender has not finished
        finish(std::nullopt);
    m_dropped = std::move(offer);
    m_reader = std::make_unique<PipeReader>(pipe[0]);
    connect(m_reader.get(), &PipeReader::finished, this, &DropTarget::finish);
}

void DropTarget::finish(const std::optional<QByteArray>& bytes) {
    m_reader.release()->deleteLater();
    if (const auto offer = std::exchange(m_dropped, nullptr); bytes && offer->action != 0)
        wl_data_offer_finish(offer->proxy.get());
    m_connection.flush();
    emit dropped(bytes);
}

} // namespace vexmoor::wayland
