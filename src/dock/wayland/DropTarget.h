#pragma once

#include "PipeReader.h"
#include "WaylandConnection.h"

#include <QByteArray>
#include <QObject>

#include <memory>
#include <optional>
#include <set>
#include <string>

namespace vexmoor::wayland {

/// Receives drags and drops on the program's own surfaces. Accepts URI lists, always as a copy, so
/// that the sender does not delete the files. Main thread; the connection must outlive it.
class DropTarget : public QObject {
    Q_OBJECT

  public:
    explicit DropTarget(WaylandConnection& connection);
    ~DropTarget() override;

  signals:
    /// Emitted when an acceptable drag enters a surface, and with null when it leaves.
    void hovered(wl_surface* surface);
    /// Emitted with the dropped list; nullopt if the sender did not write it completely.
    void dropped(const std::optional<QByteArray>& uriList);

  private:
    /// A data offer of a drag or the clipboard.
    struct Offer {
        Owned<wl_data_offer> proxy;
        bool hasUris = false;
        std::uint32_t action = 0; ///< selected by the compositor
    };

    void enter(std::uint32_t serial, wl_surface* surface, wl_data_offer* offer);
    void leave();
    void drop();
    void finish(const std::optional<QByteArray>& bytes);

    static const wl_data_device_listener kListener;
    static const wl_data_offer_listener kOfferListener;

    WaylandConnection& m_connection;
    Owned<wl_data_device> m_device;
    std::unique_ptr<Offer> m_announced; ///< the next event reports its purpose
    std::unique_ptr<Offer> m_dragged;
    std::unique_ptr<Offer> m_dropped; ///< the offer being read
    std::unique_ptr<PipeReader> m_reader;
};

} // namespace vexmoor::wayland
