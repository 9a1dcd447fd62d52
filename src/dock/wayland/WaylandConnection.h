#pragma once

#include "WaylandObjects.h"
#include "WaylandOutput.h"

#include <QObject>
#include <QSocketNotifier>

#include <list>
#include <memory>
#include <optional>

namespace vexmoor::wayland {

/// Our own connection to the session's compositor, beside the one that Qt has to the X server.
/// Main thread; its events come from the application's loop.
class WaylandConnection : public QObject {
    Q_OBJECT

  public:
    /// Null if there is no compositor.
    static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection() override;

    /// Whether it has what a tile of our own needs: layers, viewports, shared memory and a drop.
    [[nodiscard]] bool canShowTile() const;

    /// Reads events from the application's loop from now on.
    void listen();
    /// Sends what was asked for.
    void flush();

    [[nodiscard]] wl_compositor* compositor() const { return m_compositor.get(); }
    [[nodiscard]] wl_subcompositor* subcompositor() const { return m_subcompositor.get(); }
    [[nodiscard]] wl_shm* shm() const { return m_shm.get(); }
    [[nodiscard]] wl_seat* seat() const { return m_seat.get(); }
    [[nodiscard]] wl_data_device_manager* dataDevices() const { return m_dataDevices.get(); }
    [[nodiscard]] zwlr_layer_shell_v1* layers() const { return m_layers.get(); }
    [[nodiscard]] wp_viewporter* viewporter() const { return m_viewporter.get(); }
    /// Null if the compositor has none.
    [[nodiscard]] wp_fractional_scale_manager_v1* scales() const { return m_scales.get(); }

    /// Whether the seat has a pointer at the moment.
    [[nodiscard]] bool hasPointer() const { return m_hasPointer; }

    using Outputs = std::list<std::unique_ptr<WaylandOutput>>;
    /// Those that are described; the first one is the primary one.
    [[nodiscard]] std::vector<const WaylandOutput*> outputs() const;

  signals:
    void pointerChanged();
    void outputsChanged();
    /// An output is about to go: nothing may be on it any more.
    void outputRemoved(const vexmoor::wayland::WaylandOutput* output);
    /// The compositor ended the connection. Nothing can be shown on it any more.
    void lost(const QString& reason);

  private:
    explicit WaylandConnection(Owned<wl_display> display);
    void add(std::uint32_t id, const char* interface, std::uint32_t version);
    void remove(std::uint32_t id);
    void read();
    void fail();

    static const wl_registry_listener kRegistryListener;
    static const wl_seat_listener kSeatListener;

    Owned<wl_display> m_display; // before all that lives on it
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
