#pragma once

#include "base/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace vexmoor {

/// Emits a Qt signal on the main thread when the process receives SIGTERM, SIGINT or SIGHUP. Only
/// one object may exist at a time.
class EndSignals : public QObject {
    Q_OBJECT

  public:
    EndSignals();
    ~EndSignals() override;

  signals:
    void endRequested();

  private:
    FileDescriptor m_read;
    FileDescriptor m_write;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vexmoor
