#pragma once

#include "WaylandConnection.h"

#include <wayland-cursor.h>

#include <QObject>
#include <QPointF>

namespace vexmoor::wayland {

/// The seat's pointer over the program's own surfaces. Shows the default cursor. Main thread; the
/// connection must outlive it.
class Pointer : public QObject {
    Q_OBJECT

  public:
    explicit Pointer(WaylandConnection& connection);
    ~Pointer() override;

    /// Sets the scale of the cursor: physical pixels per logical pixel of the pointer's output.
    void setScale(double scale);

    enum class Button { left, right, other };

  signals:
    /// Positions are relative to the surface, in logical pixels. While a button is down, the
    /// surface in which it was pressed receives all events.
    void entered(wl_surface* surface, QPointF at);
    void moved(QPointF at);
    void left(wl_surface* surface);
    void pressed(vexmoor::wayland::Pointer::Button button);
    void released(vexmoor::wayland::Pointer::Button button);

  private:
    void follow();
    void showCursor(std::uint32_t serial);

    struct DestroyTheme {
        void operator()(wl_cursor_theme* theme) const { wl_cursor_theme_destroy(theme); }
    };

    static const wl_pointer_listener kListener;

    WaylandConnection& m_connection;
    Owned<wl_pointer> m_pointer;
    Owned<wl_surface> m_cursor;
    std::unique_ptr<wl_cursor_theme, DestroyTheme> m_theme; ///< loaded on first use
    int m_scale = 1;
};

} // namespace vexmoor::wayland
