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

/// A whole desktop with the tile on it.
class Desk {
  public:
    struct Setting {
        double scale = 1; ///< physical pixels a point
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

    /// Shows the tile with a pot on it and waits until the desktop is seen around the pot. False
    /// when that does not come to pass.
    [[nodiscard]] bool showTile(const PixelCanvas& icon);
    [[nodiscard]] QColor colourAroundPot() const;

    /// The screen as it looks now, in physical pixels.
    [[nodiscard]] QImage screen() const;
    /// Keeps a part of the screen for people to look at.
    void keepPicture(const QString& name, const QRect& part) const;

    /// What a tool of the X server prints.
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

/// The window's rectangle in physical pixels, as the X server says it.
QRect serverGeometry(const QWidget& window);

} // namespace vexmoor::test
