#pragma once

#include "WaylandObjects.h"

#include <QRect>
#include <QString>

#include <cstdint>
#include <functional>

namespace vexmoor::wayland {

/// An output, as described by the compositor. Main thread.
class WaylandOutput {
  public:
    /// `changed` is called when a description is complete, and again when it changes.
    WaylandOutput(std::uint32_t id, Owned<wl_output> output, std::function<void()> changed);
    WaylandOutput(const WaylandOutput&) = delete;
    WaylandOutput& operator=(const WaylandOutput&) = delete;

    /// Requests the exact logical size and, from older compositors, the name.
    void describeBy(zxdg_output_manager_v1* manager);

    /// Returns the output's name in the registry.
    [[nodiscard]] std::uint32_t id() const { return m_id; }
    [[nodiscard]] wl_output* proxy() const { return m_output.get(); }
    [[nodiscard]] const QString& name() const { return m_name; }
    /// Returns the rectangle in the compositor's space, in logical pixels.
    [[nodiscard]] QRect logical() const;
    /// Returns the physical pixels per logical pixel, rounded to 1/120.
    [[nodiscard]] double scale() const;
    [[nodiscard]] bool isDescribed() const { return m_isDescribed; }

  private:
    static const wl_output_listener kListener;
    static const zxdg_output_v1_listener kDetailsListener;

    std::uint32_t m_id;
    Owned<wl_output> m_output;
    Owned<zxdg_output_v1> m_details;
    std::function<void()> m_changed;
    QString m_name;
    QPoint m_position;
    QSize m_logicalSize; ///< empty until reported
    QSize m_mode;
    int m_wholeScale = 1;
    bool m_isTurned = false; ///< rotated by 90 or 270 degrees
    bool m_isDescribed = false;
};

} // namespace vexmoor::wayland
