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

/// The application's tile at the screen's edge, however the session shows it: it shows the icon,
/// takes what is dropped on it, follows the edges when it is dragged, and remembers its place. It
/// never takes the focus. Main thread.
class Tile : public QObject, public IconSink {
    Q_OBJECT

  public:
    /// The key under which the place is stored.
    static constexpr std::string_view kPlaceKey = "tile.place";

    virtual void show() = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Shows the skull.
    virtual void setBadged(bool badged) = 0;

    /// Where it is among `screens()`, in Qt's coordinates but exact to the physical pixel; nothing
    /// while it is hidden.
    [[nodiscard]] virtual std::optional<QRectF> frame() const = 0;
    /// The screens that it can be on.
    [[nodiscard]] virtual const Screens& screens() const = 0;
    /// A window for the flames above it. The tile must outlive it.
    [[nodiscard]] virtual std::unique_ptr<FlameWindow> makeFlames() = 0;

  signals:
    void shownChanged(bool shown);
    void clicked();
    /// Local items were dropped, in the order in which they came.
    void dropped(const std::vector<vexmoor::Path>& items);
    /// Something that is not on this computer was dropped, beside items that were taken or alone.
    void refused(bool tookOthers);
    /// Files were dropped, but the desktop did not hand over which.
    void withheld();
    /// The menu is wanted there, in Qt's coordinates. It is open when this returns, or there is
    /// none.
    void menuRequested(QPoint globalPosition);
    /// The desktop ended the connection by which the tile was shown. It stays away.
    void lost(const QString& reason);

  protected:
    /// Reports what a dropped list names.
    void report(const QByteArray& uriList);
};

} // namespace vexmoor
