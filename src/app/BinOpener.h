#pragma once

#include "base/Path.h"

#include <QObject>
#include <QProcess>
#include <QStringList>

#include <memory>
#include <vector>

namespace vexmoor {

/// Opens the Bin in the user's file manager: as trash:///, or else as the folder of the home's Bin.
/// Main thread.
class BinOpener : public QObject {
    Q_OBJECT

  public:
    /// A program, with its arguments, that opens the Bin or exits with a failure.
    using Way = QStringList;

    explicit BinOpener(std::vector<Way> ways) : m_ways(std::move(ways)) {}

    /// The commands of this system, best first; `folder` holds the items of the home's Bin.
    static std::vector<Way> waysTo(const Path& folder);

    /// Tries the commands until one succeeds. A command may run as long as the file manager.
    void open();

  signals:
    /// No command succeeded; `reason` is the last one's message.
    void failed(const QString& problem);

  private:
    void tryNext();

    std::vector<Way> m_ways;
    std::size_t m_next = 0;
    std::unique_ptr<QProcess> m_process;
};

} // namespace vexmoor
