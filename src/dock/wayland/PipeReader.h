#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <optional>

namespace vexmoor::wayland {

/// Reads what another program writes into a pipe, without waiting for it. Main thread.
class PipeReader : public QObject {
    Q_OBJECT

  public:
    /// Takes the reading end, which it closes.
    explicit PipeReader(int file);
    ~PipeReader() override;

  signals:
    /// All that was written; nothing if it could not be read to its end. Once; the reader may be
    /// deleted later.
    void finished(const std::optional<QByteArray>& bytes);

  private:
    void read();
    void finish(bool isWhole);

    int m_file;
    QSocketNotifier m_notifier;
    QTimer m_timeout;
    QByteArray m_bytes;
};

} // namespace vexmoor::wayland
