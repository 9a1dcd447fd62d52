#pragma once

#include "base/UserDefaults.h"

#include <QRect>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>

namespace vexmoor {

/// A window's frame kept inside what can be seen of a screen: no larger than that, and moved only
/// as far as is needed. Without a screen it stays.
QRect fitted(QRect window, const QRect& visible);

/// Brings a window, with the frame that the window manager gave it, inside the screen on which most
/// of it lies (the primary screen where it lies on none). A window that fills a screen stays.
void fitOnScreen(QWidget& window);

/// Remembers where a window is and how large. Main thread.
class WindowFrame : public QObject {
    Q_OBJECT

  public:
    /// Gives the window the frame that is stored, or else the size that it would like, in the
    /// middle of the screen. From then on it is stored soon after it was moved or resized, and when
    /// the window is hidden; and it is fitted on the screen when the window manager, which knows
    /// how wide its frames are, has shown the window. Defaults and window must outlive this.
    WindowFrame(QWidget& window, UserDefaults& defaults, std::string key = "window.Vexmoor");
    /// Stores a change that was not stored yet.
    ~WindowFrame() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void restore();
    void save();
    void changed();
    void settle();
    void fitOnce();

    QWidget& m_window;
    UserDefaults& m_defaults;
    std::string m_key;
    QTimer m_soon;
    QTimer m_next;
    std::optional<QPoint> m_corner; ///< of the frame when the window was last seen
    bool m_fitted = false;          ///< since it was last shown
};

} // namespace vexmoor
