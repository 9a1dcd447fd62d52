#pragma once

#include "base/Path.h"

#include <QObject>
#include <QProcess>
#include <QStringList>

#include <memory>
#include <vector>

namespace vexmoor {

/// Shows the Bin in the user's file manager: as the trash that it knows, else as the folder that
/// the home's Bin is. Main thread.
class BinOpener : public QObject {
    Q_OBJECT

  public:
    /// A program with its arguments that shows the Bin or fails.
    using Way = QStringList;

    explicit BinOpener(std::vector<Way> ways) : m_ways(std::move(ways)) {}

    /// The ways of this system, best first; `folder` is that of the items in the home's Bin.
    static std::vector<Way> waysTo(const Path& folder);

    /// Goes through the ways until one works. A way may run as long as the file manager does.
    void open();

  signals:
    /// No way worked; in the words of the last.
    void failed(const QString& problem);

  private:
    void tryNext();

    std::vector<Way> m_ways;
    std::size_t m_next = 0;
    std::unique_ptr<QProcess> m_process;
};

} // namespace vexmoor
