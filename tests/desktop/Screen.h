#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A window that can be seen: one that the window manager has, or one that went around it.
struct SeenWindow {
    xcb_window_t id = 0;
    std::string title;
    std::string className;
    QRect frame; ///< without what the window manager puts around it
    bool isManaged = false;
    bool isDock = false;
    bool isDialog = false;
};

/// The X display as somebody before it sees it. In physical pixels.
class Screen {
  public:
    explicit Screen(const std::string& display);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Paints the desktop behind all windows.
    void fill(QColor colour);

    [[nodiscard]] QImage picture() const;
    /// Keeps a part of the screen, or the whole, for people to look at.
    void keepPicture(const std::string& name, const QRect& part = {}) const;

    [[nodiscard]] std::vector<SeenWindow> windows() const;
    [[nodiscard]] std::optional<SeenWindow>
    find(const std::function<bool(const SeenWindow&)>& isWanted) const;
    /// From now on, what launchers are told (Startup Notification Protocol).
    void watchLaunches();
    [[nodiscard]] std::string launchMessages();

    /// From now on, the beeps of programs.
    void watchBells();
    /// Whether one has beeped since then.
    [[nodiscard]] bool hasBeeped();

    /// The window that keys go to.
    [[nodiscard]] std::optional<SeenWindow> active() const;

  private:
    [[nodiscard]] xcb_atom_t atom(const char* name) const;
    [[nodiscard]] std::string property(xcb_window_t window, const char* name) const;
    [[nodiscard]] std::optional<SeenWindow> seen(xcb_window_t window, bool isManaged) const;
    void readEvents();

    xcb_connection_t* m_x;
    const xcb_screen_t* m_screen;
    std::string m_launchMessages;
    int m_bellEvent = 0; ///< the number of the keyboard extension's events
    bool m_hasBeeped = false;
};

/// How many pixels of the picture have one of the colours.
int countOf(const QImage& picture, const std::vector<QRgb>& colours);

} // namespace vexmoor::test
