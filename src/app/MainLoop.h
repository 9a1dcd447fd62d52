#pragma once

#include "base/Executor.h"

#include <QObject>

#include <utility>

namespace vexmoor {

/// Runs jobs on the thread it lives on, from that thread's event loop. Jobs that have not run when
/// it goes are dropped.
class MainLoop : public Executor {
  public:
    void post(std::function<void()> job) override {
        QMetaObject::invokeMethod(&m_context, std::move(job), Qt::QueuedConnection);
    }

  private:
    QObject m_context;
};

} // namespace vexmoor
