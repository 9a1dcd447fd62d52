#pragma once

#include "support/Command.h"
#include "support/InMemoryDefaults.h"
#include "support/MainLoop.h"
#include "support/XSession.h"

#include "dock/Compositor.h"
#include "dock/TileWindow.h"

#include <QApplication>
#include <QImage>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace vexmoor::test {

/// A complete desktop with the tile.
class Desk {
  public:
    struct Setting {
        double scale = 1; ///< physical pixels per point
        bool compositor = false;
        QColor background = QColor(0x3b, 0x4a, 0x5e);
        std::string size = "1280x800";

        friend void PrintTo(const Setting& setting, std::ostream* out) {
            *out << setting.size << " at " << setting.scale
                 << (setting.compositor ? ", composited" : "");
        }
    };

    explicit Desk(const Setting& setting);
    ~Desk();

    void startCompositor();
    void endCompositor();

    /// Shows the tile with a pot and waits until the desktop is visible around it. Returns false on
    /// timeout.
    [[nodiscard]] bool showTile(const PixelCanvas& icon);
    [[nodiscard]] QColor colourAroundPot() const;

    /// Returns a screenshot in physical pixels.
    [[nodiscard]] QImage screen() const;
    /// Saves a part of the screen for visual inspection.
    void keepPicture(const QString& name, const QRect& part) const;

    /// Returns the output of an X tool.
    static std::string output(std::vector<std::string> words);
    static void mouse(std::vector<std::string> orders);
    static std::string idOf(const QWidget& window);

    XSession session;
    InMemoryDefaults defaults;
    std::unique_ptr<QApplication> application;
    std::unique_ptr<Compositor> compositor;
    std::unique_ptr<TileWindow> tile;

  private:
    QColor m_background;
};

/// Returns the window's rectangle on the X server, in physical pixels.
QRect serverGeometry(const QWidget& window);

} // namespace vexmoor::test
