#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace vexmoor {

/// Whether windows may be translucent, which changes when a compositing manager starts or ends.
/// Needs the application; main thread.
class Compositor : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

  public:
    explicit Compositor(QObject* parent = nullptr);
    ~Compositor() override;

    [[nodiscard]] bool isRunning() const { return m_running; }

  signals:
    void runningChanged(bool running);

  private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void setRunning(bool running);

    bool m_running = true;
    unsigned m_selection = 0; ///< what a compositing manager owns
    int m_ownerEvent = -1;    ///< the event that tells of its owners
};

} // namespace vexmoor
