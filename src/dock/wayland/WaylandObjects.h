#pragma once

#include "fractional-scale-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-layer-shell-client-protocol.h"
#include "xdg-output-client-protocol.h"

#include <wayland-client.h>

#include <QMetaType>

#include <memory>

Q_DECLARE_OPAQUE_POINTER(wl_surface*) // used in signals

// Owning pointers for Wayland objects.

namespace vexmoor::wayland {

struct Destroy {
    void operator()(wl_display* o) const { wl_display_disconnect(o); }
    void operator()(wl_registry* o) const { wl_registry_destroy(o); }
    void operator()(wl_compositor* o) const { wl_compositor_destroy(o); }
    void operator()(wl_subcompositor* o) const { wl_subcompositor_destroy(o); }
    void operator()(wl_subsurface* o) const { wl_subsurface_destroy(o); }
    void operator()(wl_region* o) const { wl_region_destroy(o); }
    void operator()(wl_shm* o) const { wl_shm_destroy(o); }
    void operator()(wl_buffer* o) const { wl_buffer_destroy(o); }
    void operator()(wl_surface* o) const { wl_surface_destroy(o); }
    void operator()(wl_output* o) const { wl_output_destroy(o); }
    void operator()(wl_seat* o) const { wl_seat_destroy(o); }
    void operator()(wl_pointer* o) const { wl_pointer_release(o); }
    void operator()(wl_data_device_manager* o) const { wl_data_device_manager_destroy(o); }
    void operator()(wl_data_device* o) const { wl_data_device_release(o); }
    void operator()(wl_data_offer* o) const { wl_data_offer_destroy(o); }
    void operator()(wp_viewporter* o) const { wp_viewporter_destroy(o); }
    void operator()(wp_viewport* o) const { wp_viewport_destroy(o); }
    void operator()(wp_fractional_scale_manager_v1* o) const {
        wp_fractional_scale_manager_v1_destroy(o);
    }
    void operator()(wp_fractional_scale_v1* o) const { wp_fractional_scale_v1_destroy(o); }
    void operator()(zxdg_output_manager_v1* o) const { zxdg_output_manager_v1_destroy(o); }
    void operator()(zxdg_output_v1* o) const { zxdg_output_v1_destroy(o); }
    void operator()(zwlr_layer_shell_v1* o) const {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(o));
    }
    void operator()(zwlr_layer_surface_v1* o) const { zwlr_layer_surface_v1_destroy(o); }
};

template <typename T>
using Owned = std::unique_ptr<T, Destroy>;

} // namespace vexmoor::wayland
