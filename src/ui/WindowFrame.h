#pragma once

#include "base/UserDefaults.h"

#include <QRect>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>

namespace vexmoor {

/// Fits a window's frame into the visible part of a screen: limits its size and moves it only as
/// far as needed. Without a screen returns it unchanged.
QRect fitted(QRect window, const QRect& visible);

/// Moves and resizes a window, including its frame, to fit on the screen that contains most of it
/// (the primary screen if none does). Leaves maximised and fullscreen windows unchanged.
void fitOnScreen(QWidget& window);

/// Stores and restores a window's position and size. Main thread.
class WindowFrame : public QObject {
    Q_OBJECT

  public:
    /// Restores the stored geometry, or centres the window at its preferred size. Stores the
    /// geometry shortly after changes and when the window is hidden. Fits the window on the screen
    /// once the window manager has shown it, since only then its frame margins are known. Defaults
    /// and window must outlive this object.
    WindowFrame(QWidget& window, UserDefaults& defaults, std::string key = "window.Vexmoor");
    /// Stores pending changes.
    ~WindowFrame() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void restore();
    void save();
    void changed();
    void fitAndSave();
    void fitOnce();

    QWidget& m_window;
    UserDefaults& m_defaults;
    std::string m_key;
    QTimer m_soon;
    QTimer m_next;
    std::optional<QPoint> m_corner; ///< the frame's corner when last visible
    bool m_fitted = false;          ///< since the last show
};

} // namespace vexmoor
