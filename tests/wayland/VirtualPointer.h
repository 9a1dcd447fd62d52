#pragma once

#include <QPoint>
#include <QSize>

#include <functional>
#include <memory>
#include <string>

namespace vexmoor::test {

/// A pointer that the compositor takes for a mouse. In logical pixels of all outputs together.
class VirtualPointer {
  public:
    /// `pause` waits for so many milliseconds between two movements, as a hand does. Throws if the
    /// compositor has no such pointers.
    VirtualPointer(const std::string& display, QSize outputs, std::function<void(int)> pause);
    ~VirtualPointer();
    VirtualPointer(const VirtualPointer&) = delete;
    VirtualPointer& operator=(const VirtualPointer&) = delete;

    enum class Button : unsigned { left = 0x110, right = 0x111 };

    void move(QPoint to);
    void press(Button button = Button::left);
    void release(Button button = Button::left);
    void click(QPoint at, Button button = Button::left);
    /// Slowly enough for a file manager to see that it is a drag. It is not released.
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
