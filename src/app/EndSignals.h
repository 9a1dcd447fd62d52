#pragma once

#include "base/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace vexmoor {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into one of Qt's, on the
/// main thread. One at a time.
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
