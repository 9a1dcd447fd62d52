#pragma once

#include "base/Executor.h"

#include <QObject>

namespace vexmoor {

/// Runs jobs on the thread it lives on, from that thread's event loop. Jobs that have not run when
/// it goes are dropped.
class MainLoop : public QObject, public Executor {
    Q_OBJECT

  public:
    using QObject::QObject;

    void post(std::function<void()> job) override {
        QMetaObject::invokeMethod(this, std::move(job), Qt::QueuedConnection);
    }
};

} // namespace vexmoor
