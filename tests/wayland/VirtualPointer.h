#pragma once

#include <QPoint>
#include <QSize>

#include <functional>
#include <memory>
#include <string>

namespace vexmoor::test {

/// A virtual pointer device. Positions are in logical pixels of the compositor's space.
class VirtualPointer {
  public:
    /// `pause` waits that many milliseconds between two movements, so that they resemble a user's.
    /// Throws if the compositor does not support virtual pointers.
    VirtualPointer(const std::string& display, QSize outputs, std::function<void(int)> pause);
    ~VirtualPointer();
    VirtualPointer(const VirtualPointer&) = delete;
    VirtualPointer& operator=(const VirtualPointer&) = delete;

    enum class Button : unsigned { left = 0x110, right = 0x111 };

    void move(QPoint to);
    void press(Button button = Button::left);
    void release(Button button = Button::left);
    void click(QPoint at, Button button = Button::left);
    /// Drags slowly enough for a file manager to start a drag. Does not release the button.
    void dragTo(QPoint from, QPoint to);

  private:
    struct Connection;

    void send();

    std::unique_ptr<Connection> m_connection;
    QSize m_outputs;
    std::function<void(int)> m_pause;
    unsigned m_time = 0;
    QPoint m_at;
};

} // namespace vexmoor::test
