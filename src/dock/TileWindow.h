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

/// How the tile is shown on an X server.
struct TileHandling {
    /// What keeps the tile in its position. On some desktops only a window that bypasses the window
    /// manager stays in place; on others only a window that can take the focus receives a drag's
    /// data, although it never requests the focus.
    enum class Manager { windowManager, windowManagerWithFocus, none };

    Manager manager = Manager::windowManager;
    /// Read a drag's list when the drag enters, because the compositor may refuse it later.
    bool readsDragsEarly = false;

    bool operator==(const TileHandling&) const = default;
};

/// The native window of the tile: a small frameless window at the screen's edge that shows the icon
/// and accepts drops. A click or a screen reader presses it (clicked()); dragging moves it along
/// the edges, and it remembers its position. It never takes the focus. Main thread.
class TileWindow : public QAbstractButton, public IconSink {
    Q_OBJECT

  public:
    /// Defaults and compositor must outlive the window.
    TileWindow(UserDefaults& defaults, const Compositor& compositor, TileHandling handling = {});

    void setIcon(const PixelCanvas& icon) override;
    void setVisible(bool visible) override;

    /// Shows or hides the skull.
    void setBadged(bool badged);

    /// Requests the menu, as a right click does.
    void requestMenu();

    /// Returns the frame in Qt's coordinates, exact to the physical pixel; nullopt while hidden.
    [[nodiscard]] std::optional<QRectF> frame() const;

  signals:
    void shownChanged(bool shown);
    /// A URI list was dropped; empty if the desktop did not deliver it.
    void listDropped(const QByteArray& uriList);
    /// The user requested the menu at that position.
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
    QByteArray m_draggedList; ///< read when the drag entered
    TilePicture m_picture;
    TilePlace m_place;
    QRect m_physical;   ///< the window's actual geometry
    double m_ratio = 1; ///< physical pixels per point
    int m_cell = 3;     ///< physical pixels per canvas pixel
    QImage m_image;
    bool m_moving = false;             ///< the user is dragging the tile
    std::optional<QPoint> m_grabbedAt; ///< the pointer relative to the window's corner, in points
    QPoint m_pressedAt;
};

} // namespace vexmoor
