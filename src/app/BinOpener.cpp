#include "BinOpener.h"

#include <QFile>
#include <QStandardPaths>

namespace vexmoor {

std::vector<BinOpener::Way> BinOpener::waysTo(const Path& folder) {
    const QString path = QFile::decodeName(folder.c_str());
    return {
        {QStringLiteral("gio"), QStringLiteral("open"), QStringLiteral("trash:///")},
        {QStringLiteral("kde-open"), QStringLiteral("trash:/")},
        {QStringLiteral("kde-open5"), QStringLiteral("trash:/")},
        {QStringLiteral("xdg-open"), path},
        {QStringLiteral("gio"), QStringLiteral("open"), path},
    };
}

void BinOpener::open() {
    if (m_process) {
        m_process->disconnect(this);
        connect(m_process.get(), &QProcess::finished, m_process.get(), &QObject::deleteLater);
        m_process.release();
    }
    m_next = 0;
    tryNext();
}

void BinOpener::tryNext() {
    QString problem = tr("No program for it was found.");
    if (m_process) {
        const auto words = QString::fromUtf8(m_process->readAllStandardError()).trimmed();
        problem = words.isEmpty() ? problem : words;
        m_process.release()->deleteLater(); // the call comes from its own signal
    }
    while (m_next < m_ways.size()) {
        Way way = m_ways[m_next++];
        const QString program = QStandardPaths::findExecutable(way.takeFirst());
        if (program.isEmpty())
            continue;
        m_process = std::make_unique<QProcess>();
        connect(m_process.get(), &QProcess::finished, this,
                [this](int status, QProcess::ExitStatus exit) {
                    if (exit == QProcess::NormalExit && status == 0)
                        m_process.release()->deleteLater();
                    else
                        tryNext();
                });
        connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError e) {
            if (e == QProcess::FailedToStart) // all other errors end with finished()
                tryNext();
        });
        m_process->start(program, way);
        return;
    }
    emit failed(problem);
}

} // namespace vexmoor
