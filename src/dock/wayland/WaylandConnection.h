#pragma once

#include "WaylandObjects.h"
#include "WaylandOutput.h"

#include <QObject>
#include <QSocketNotifier>

#include <list>
#include <memory>
#include <optional>

namespace vexmoor::wayland {

/// The program's own connection to the compositor, independent of Qt's X11 connection. Main thread;
/// its events are dispatched by the application's event loop.
class WaylandConnection : public QObject {
    Q_OBJECT

  public:
    /// Returns null if there is no compositor.
    static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection() override;

    /// True if the compositor supports layer surfaces, viewports, shared memory and drops.
    [[nodiscard]] bool canShowTile() const;

    /// Starts dispatching events in the application's event loop.
    void listen();
    /// Sends the pending requests.
    void flush();

    [[nodiscard]] wl_compositor* compositor() const { return m_compositor.get(); }
    [[nodiscard]] wl_subcompositor* subcompositor() const { return m_subcompositor.get(); }
    [[nodiscard]] wl_shm* shm() const { return m_shm.get(); }
    [[nodiscard]] wl_seat* seat() const { return m_seat.get(); }
    [[nodiscard]] wl_data_device_manager* dataDevices() const { return m_dataDevices.get(); }
    [[nodiscard]] zwlr_layer_shell_v1* layers() const { return m_layers.get(); }
    [[nodiscard]] wp_viewporter* viewporter() const { return m_viewporter.get(); }
    /// Null if the compositor does not support fractional scales.
    [[nodiscard]] wp_fractional_scale_manager_v1* scales() const { return m_scales.get(); }

    /// True if the seat currently has a pointer.
    [[nodiscard]] bool hasPointer() const { return m_hasPointer; }

    using Outputs = std::list<std::unique_ptr<WaylandOutput>>;
    /// Returns the outputs that are completely described; the first one is the primary one.
    [[nodiscard]] std::vector<const WaylandOutput*> outputs() const;

  signals:
    void pointerChanged();
    void outputsChanged();
    /// Emitted before an output is destroyed. Surfaces on it must be destroyed.
    void outputRemoved(const vexmoor::wayland::WaylandOutput* output);
    /// Emitted when the connection has failed. Nothing can be shown on it any more.
    void lost(const QString& reason);

  private:
    explicit WaylandConnection(Owned<wl_display> display);
    void add(std::uint32_t id, const char* interface, std::uint32_t version);
    void remove(std::uint32_t id);
    void read();
    void fail();

    static const wl_registry_listener kRegistryListener;
    static const wl_seat_listener kSeatListener;

    Owned<wl_display> m_display; // must be destroyed last
    Owned<wl_registry> m_registry;
    Owned<wl_compositor> m_compositor;
    Owned<wl_subcompositor> m_subcompositor;
    Owned<wl_shm> m_shm;
    Owned<wl_seat> m_seat;
    Owned<wl_data_device_manager> m_dataDevices;
    Owned<zwlr_layer_shell_v1> m_layers;
    Owned<wp_viewporter> m_viewporter;
    Owned<wp_fractional_scale_manager_v1> m_scales;
    Owned<zxdg_output_manager_v1> m_outputDetails;
    Outputs m_outputs;
    bool m_hasPointer = false;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace vexmoor::wayland
