#pragma once

#include "WaylandObjects.h"

#include <QRect>
#include <QString>

#include <cstdint>
#include <functional>

namespace vexmoor::wayland {

/// An output of the compositor, as it describes it. Main thread.
class WaylandOutput {
  public:
    /// `changed` is called when a description is complete, and at each change.
    WaylandOutput(std::uint32_t id, Owned<wl_output> output, std::function<void()> changed);
    WaylandOutput(const WaylandOutput&) = delete;
    WaylandOutput& operator=(const WaylandOutput&) = delete;

    /// Asks for the exact logical size and, on older compositors, for the name.
    void describeBy(zxdg_output_manager_v1* manager);

    /// By which the registry names it.
    [[nodiscard]] std::uint32_t id() const { return m_id; }
    [[nodiscard]] wl_output* proxy() const { return m_output.get(); }
    [[nodiscard]] const QString& name() const { return m_name; }
    /// Where it is among the outputs, in the compositor's logical pixels.
    [[nodiscard]] QRect logical() const;
    /// Physical pixels a logical one, to the 120th part.
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
    QSize m_logicalSize; ///< empty until it is told
    QSize m_mode;
    int m_wholeScale = 1;
    bool m_isTurned = false; ///< by a quarter
    bool m_isDescribed = false;
};

} // namespace vexmoor::wayland
