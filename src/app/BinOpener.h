#pragma once

#include "base/Path.h"

#include <QObject>
#include <QProcess>
#include <QStringList>

#include <memory>
#include <vector>

namespace vexmoor {

/// Opens the Bin in the user's file manager: as trash:///, otherwise as the folder of the home Bin.
/// Main thread.
class BinOpener : public QObject {
    Q_OBJECT

  public:
    /// A program, with its arguments, that opens the Bin or exits with a failure.
    using Way = QStringList;

    explicit BinOpener(std::vector<Way> ways) : m_ways(std::move(ways)) {}

    /// Returns the commands for this system, best first; `folder` contains the items of the home
    /// Bin.
    static std::vector<Way> waysTo(const Path& folder);

    /// Tries the commands until one succeeds. A command may run as long as the file manager.
    void open();

  signals:
    /// Emitted if no command succeeded; `problem` is the last one's message.
    void failed(const QString& problem);

  private:
    void tryNext();

    std::vector<Way> m_ways;
    std::size_t m_next = 0;
    std::unique_ptr<QProcess> m_process;
};

} // namespace vexmoor
