#pragma once

#include "Compositor.h"
#include "IconSink.h"
#include "TilePicture.h"
#include "TilePlace.h"

#include "base/UserDefaults.h"

#include <QAbstractButton>
#include <QImage>

#include <optional>

namespace vexmoor {

/// How an X server's tile is shown.
struct TileHandling {
    /// Who keeps the tile in its place. On some desktops only a window that the window manager does
    /// not see keeps it; on others only a window that could have the focus gets the data of a drag,
    /// though it never asks for the focus.
    enum class Manager { windowManager, windowManagerWithFocus, nobody };

    Manager manager = Manager::windowManager;
    /// The list of a drag is read as soon as it enters: the compositor may refuse it later.
    bool readsDragsEarly = false;

    bool operator==(const TileHandling&) const = default;
};

/// The window of the application's tile: a small frameless window at the screen's edge that shows
/// the icon and takes what is dropped on it. A click or a screen reader presses it (clicked());
/// dragged, it follows the edges, and it remembers its place. It never takes the focus. Main
/// thread.
class TileWindow : public QAbstractButton, public IconSink {
    Q_OBJECT

  public:
    /// Defaults and compositor must outlive the window.
    TileWindow(UserDefaults& defaults, const Compositor& compositor, TileHandling handling = {});

    void setIcon(const PixelCanvas& icon) override;
    void setVisible(bool visible) override;

    /// Shows the skull.
    void setBadged(bool badged);

    /// Asks for the menu as the right button does.
    void requestMenu();

    /// Where it is, in Qt's coordinates but exact to the physical pixel; nothing while it is
    /// hidden.
    [[nodiscard]] std::optional<QRectF> frame() const;

  signals:
    void shownChanged(bool shown);
    /// A list of URIs was dropped; empty if the desktop did not hand it over.
    void listDropped(const QByteArray& uriList);
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

    UserDefaults& m_defaults;
    const Compositor& m_compositor;
    const bool m_readsDragsEarly;
    QByteArray m_draggedList; ///< what was read when the drag entered
    TilePicture m_picture;
    TilePlace m_place;
    QRect m_physical;   ///< where the window is
    double m_ratio = 1; ///< physical pixels a point
    int m_cell = 3;     ///< physical pixels a canvas pixel
    QImage m_image;
    bool m_moving = false;             ///< it is being dragged itself
    std::optional<QPoint> m_grabbedAt; ///< the pointer from the window's corner, in points
    QPoint m_pressedAt;
};

} // namespace vexmoor
