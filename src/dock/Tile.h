#pragma once

#include "IconSink.h"
#include "Screens.h"

#include "base/Path.h"

#include <QObject>
#include <QPoint>
#include <QRectF>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vexmoor {

/// The application's tile at the screen's edge, independent of how the session shows it. It shows
/// the icon, accepts drops, follows the screen's edges when dragged and remembers its position. It
/// never takes the focus. Main thread.
class Tile : public QObject, public IconSink {
    Q_OBJECT

  public:
    /// The defaults key of the position.
    static constexpr std::string_view kPlaceKey = "tile.place";

    virtual void show() = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Shows or hides the skull.
    virtual void setBadged(bool badged) = 0;

    /// Returns the frame within `screens()` in Qt's coordinates, exact to the physical pixel;
    /// nullopt while hidden.
    [[nodiscard]] virtual std::optional<QRectF> frame() const = 0;
    /// Returns the screens that the tile can be on.
    [[nodiscard]] virtual const Screens& screens() const = 0;
    /// Creates the window for the flames above the tile. The tile must outlive it.
    [[nodiscard]] virtual std::unique_ptr<FlameWindow> makeFlames() = 0;

  signals:
    void shownChanged(bool shown);
    void clicked();
    /// Local items were dropped; they have the order of the drop.
    void dropped(const std::vector<vexmoor::Path>& items);
    /// Items that are not on this computer were dropped. `tookOthers` is true if local items were
    /// dropped with them.
    void refused(bool tookOthers);
    /// Files were dropped, but the desktop did not deliver their list.
    void withheld();
    /// The user requested the menu at that position in Qt's coordinates. The menu is open when the
    /// signal returns, or there is none.
    void menuRequested(QPoint globalPosition);
    /// The desktop closed the connection that shows the tile. The tile stays hidden.
    void lost(const QString& reason);

  protected:
    /// Emits the signals for a dropped list.
    void report(const QByteArray& uriList);
};

} // namespace vexmoor
