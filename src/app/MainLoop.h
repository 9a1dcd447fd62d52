#pragma once

#include "base/Executor.h"

#include <QObject>

#include <utility>

namespace vexmoor {

/// Runs jobs in the event loop of the thread that created it. Destroying it drops the jobs that
/// have not run.
class MainLoop : public Executor {
  public:
    void post(std::function<void()> job) override {
        QMetaObject::invokeMethod(&m_context, std::move(job), Qt::QueuedConnection);
    }

  private:
    QObject m_context;
};

} // namespace vexmoor
