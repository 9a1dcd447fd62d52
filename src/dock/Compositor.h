#pragma once

#include "SelectionOwner.h"

#include <QObject>

namespace vexmoor {

/// Whether windows can be translucent. Changes when a compositing manager starts or exits. Requires
/// the QGuiApplication; main thread.
class Compositor : public QObject {
    Q_OBJECT

  public:
    explicit Compositor(QObject* parent = nullptr);

    [[nodiscard]] bool isRunning() const { return !m_owner.isKnown() || m_owner.isOwned(); }

  signals:
    void runningChanged(bool running);

  private:
    SelectionOwner m_owner;
};

} // namespace vexmoor
