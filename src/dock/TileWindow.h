#pragma once

#include "Compositor.h"
#include "IconSink.h"
#include "TilePlace.h"

#include "base/Path.h"
#include "base/UserDefaults.h"

#include <QAbstractButton>
#include <QImage>

#include <optional>
#include <vector>

namespace vexmoor {

/// The application's tile: a small frameless window at the screen's edge that shows the icon and
/// takes what is dropped on it. A click or a screen reader presses it (clicked()); dragged, it
/// follows the edges, and it remembers its place. It never takes the focus. Main thread.
class TileWindow : public QAbstractButton, public IconSink {
    Q_OBJECT

  public:
    /// Who keeps the tile in its place: on some desktops only a window that the window manager does
    /// not see keeps it.
    enum class Manager { windowManager, nobody };

    /// Defaults and compositor must outlive the window.
    TileWindow(UserDefaults& defaults, const Compositor& compositor,
               Manager manager = Manager::windowManager);

    void setIcon(const PixelCanvas& icon) override;
    void setVisible(bool visible) override;

    /// Shows the skull.
    void setBadged(bool badged);

    /// Asks for the menu as the right button does.
    void requestMenu();

    /// Where it is, in Qt's coordinates but exact to the physical pixel; nothing while it is
    /// hidden.
    [[nodiscard]] std::optional<QRectF> frame() const;

    /// The key under which the place is stored.
    static constexpr std::string_view kPlaceKey = "tile.place";

  signals:
    void shownChanged(bool shown);
    /// Local items were dropped, in the order in which they came.
    void dropped(const std::vector<vexmoor::Path>& items);
    /// Something that is not on this computer was dropped, beside items that were taken or alone.
    void refused(bool tookOthers);
    /// The menu is wanted there.
    void menuRequested(QPoint globalPosition);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void watchScreens();
    void place();
    void readGeometry();
    void setHovered(bool hovered);
    void redraw();
    void updateShape();
    [[nodiscard]] QImage picture() const;

    UserDefaults& m_defaults;
    const Compositor& m_compositor;
    std::optional<PixelCanvas> m_icon;
    TilePlace m_place;
    QRect m_physical;   ///< where the window is
    double m_ratio = 1; ///< physical pixels a point
    int m_cell = 3;     ///< physical pixels a canvas pixel
    QImage m_image;
    bool m_badged = false;
    bool m_hovered = false;            ///< something is dragged over it
    bool m_moving = false;             ///< it is being dragged itself
    std::optional<QPoint> m_grabbedAt; ///< the pointer from the window's corner, in points
    QPoint m_pressedAt;
};

} // namespace vexmoor
