#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <optional>

namespace vexmoor::wayland {

/// Reads asynchronously what another program writes into a pipe. Main thread.
class PipeReader : public QObject {
    Q_OBJECT

  public:
    /// Takes ownership of the read end.
    explicit PipeReader(int file);
    ~PipeReader() override;

  signals:
    /// Emitted once with all bytes; nullopt if they could not be read completely. The reader may
    /// then be deleted with deleteLater().
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
