#include "WaylandOutput.h"

#include <cmath>

namespace vexmoor::wayland {
namespace {

WaylandOutput* self(void* data) {
    return static_cast<WaylandOutput*>(data);
}

} // namespace

const wl_output_listener WaylandOutput::kListener = [] {
    wl_output_listener listener{};
    listener.geometry = [](void* data, wl_output*, std::int32_t x, std::int32_t y, std::int32_t,
                           std::int32_t, std::int32_t, const char*, const char*,
                           std::int32_t transform) {
        if (!self(data)->m_details)
            self(data)->m_position = {x, y};
        self(data)->m_isTurned = transform % 2 != 0;
    };
    listener.mode = [](void* data, wl_output*, std::uint32_t flags, std::int32_t width,
                       std::int32_t height, std::int32_t) {
        if ((flags & WL_OUTPUT_MODE_CURRENT) != 0)
            self(data)->m_mode = {width, height};
    };
    listener.done = [](void* data, wl_output*) {
        self(data)->m_isDescribed = true;
        self(data)->m_changed();
    };
    listener.scale = [](void* data, wl_output*, std::int32_t factor) {
        self(data)->m_wholeScale = std::max(1, factor);
    };
    listener.name = [](void* data, wl_output*, const char* name) {
        self(data)->m_name = QString::fromUtf8(name);
    };
    listener.description = [](void*, wl_output*, const char*) {};
    return listener;
}();

const zxdg_output_v1_listener WaylandOutput::kDetailsListener = [] {
    zxdg_output_v1_listener listener{};
    listener.logical_position = [](void* data, zxdg_output_v1*, std::int32_t x, std::int32_t y) {
        self(data)->m_position = {x, y};
    };
    listener.logical_size = [](void* data, zxdg_output_v1*, std::int32_t width,
                               std::int32_t height) {
        self(data)->m_logicalSize = {width, height};
    };
    listener.done = [](void* data, zxdg_output_v1*) { self(data)->m_changed(); };
    listener.name = [](void* data, zxdg_output_v1*, const char* name) {
        self(data)->m_name = QString::fromUtf8(name);
    };
    listener.description = [](void*, zxdg_output_v1*, const char*) {};
    return listener;
}();

WaylandOutput::WaylandOutput(std::uint32_t id, Owned<wl_output> output,
                             std::function<void()> changed)
    : m_id(id), m_output(std::move(output)), m_changed(std::move(changed)) {
    wl_output_add_listener(m_output.get(), &kListener, this);
}

void WaylandOutput::describeBy(zxdg_output_manager_v1* manager) {
    if (manager == nullptr || m_details)
        return;
    m_details.reset(zxdg_output_manager_v1_get_xdg_output(manager, m_output.get()));
    zxdg_output_v1_add_listener(m_details.get(), &kDetailsListener, this);
}

QRect WaylandOutput::logical() const {
    const QSize turned = m_isTurned ? m_mode.transposed() : m_mode;
    return {m_position, m_logicalSize.isEmpty() ? turned / m_wholeScale : m_logicalSize};
}

double WaylandOutput::scale() const {
    constexpr double kSteps = 120; // the unit of the fractional-scale protocol
    const int physical = m_isTurned ? m_mode.height() : m_mode.width();
    const int points = logical().width();
    if (physical <= 0 || points <= 0)
        return m_wholeScale;
    return std::max(1.0, std::round(kSteps * physical / points)) / kSteps;
}

} // namespace vexmoor::wayland
