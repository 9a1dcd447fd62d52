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

/// What is dragged over our own surfaces and dropped there. Takes lists of URIs, always as a copy:
/// the sender must not delete what it gave. Main thread; the connection must outlive it.
class DropTarget : public QObject {
    Q_OBJECT

  public:
    explicit DropTarget(WaylandConnection& connection);
    ~DropTarget() override;

  signals:
    /// Something that can be taken is over the surface, or over none of ours any more (null).
    void hovered(wl_surface* surface);
    /// What was dropped; nothing if the sender did not hand it over to its end.
    void dropped(const std::optional<QByteArray>& uriList);

  private:
    /// What a drag, or the clipboard, has to give.
    struct Offer {
        Owned<wl_data_offer> proxy;
        bool hasUris = false;
        std::uint32_t action = 0; ///< as the compositor chose it
    };

    void enter(std::uint32_t serial, wl_surface* surface, wl_data_offer* offer);
    void leave();
    void drop();
    void finish(const std::optional<QByteArray>& bytes);

    static const wl_data_device_listener kListener;
    static const wl_data_offer_listener kOfferListener;

    WaylandConnection& m_connection;
    Owned<wl_data_device> m_device;
    std::unique_ptr<Offer> m_announced; ///< what it is for comes with the next event
    std::unique_ptr<Offer> m_dragged;
    std::unique_ptr<Offer> m_dropped; ///< is being read
    std::unique_ptr<PipeReader> m_reader;
};

} // namespace vexmoor::wayland
