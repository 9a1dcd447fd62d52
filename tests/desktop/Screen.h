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

/// A visible window, managed by the window manager or not.
struct SeenWindow {
    xcb_window_t id = 0;
    std::string title;
    std::string className;
    QRect frame; ///< without the window manager's frame
    bool isManaged = false;
    bool isDock = false;
    bool isDialog = false;
};

/// The X display as a user sees it, in physical pixels.
class Screen {
  public:
    explicit Screen(const std::string& display);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Fills the background of the desktop.
    void fill(QColor colour);

    [[nodiscard]] QImage picture() const;
    /// Saves a picture of a part of the screen, or of all of it, for people to look at.
    void keepPicture(const std::string& name, const QRect& part = {}) const;

    [[nodiscard]] std::vector<SeenWindow> windows() const;
    [[nodiscard]] std::optional<SeenWindow>
    find(const std::function<bool(const SeenWindow&)>& isWanted) const;
    /// Starts recording the messages to launchers (Startup Notification Protocol).
    void watchLaunches();
    [[nodiscard]] std::string launchMessages();

    /// Starts watching for beeps.
    void watchBells();
    /// True if a program has beeped since then.
    [[nodiscard]] bool hasBeeped();

    /// Returns the window with the keyboard focus.
    [[nodiscard]] std::optional<SeenWindow> active() const;

  private:
    [[nodiscard]] xcb_atom_t atom(const char* name) const;
    [[nodiscard]] std::string property(xcb_window_t window, const char* name) const;
    [[nodiscard]] std::optional<SeenWindow> seen(xcb_window_t window, bool isManaged) const;
    void readEvents();

    xcb_connection_t* m_x;
    const xcb_screen_t* m_screen;
    std::string m_launchMessages;
    int m_bellEvent = 0; ///< event number of the keyboard extension
    bool m_hasBeeped = false;
};

/// Returns the number of pixels that have one of the colours.
int countOf(const QImage& picture, const std::vector<QRgb>& colours);

} // namespace vexmoor::test
