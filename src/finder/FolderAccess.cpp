#include "FolderAccess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

#include <filesystem>
#include <memory>
#include <utility>

namespace vexmoor::FolderAccess {

namespace {

QStandardPaths::StandardLocation locationOf(Folder folder) {
    switch (folder) {
    case Folder::desktop:
        return QStandardPaths::DesktopLocation;
    case Folder::documents:
        return QStandardPaths::DocumentsLocation;
    case Folder::downloads:
        return QStandardPaths::DownloadLocation;
    }
    return QStandardPaths::HomeLocation;
}

bool canList(const Path& folder) {
    std::error_code code;
    std::filesystem::directory_iterator(folder, code);
    return !code;
}

QDBusMessage showProperties(const Path& folder) {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("/org/freedesktop/FileManager1"),
                                               QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("ShowItemProperties"));
    call << QStringList{QString::fromStdString(fileUri(folder))} << QString();
    return call;
}

} // namespace

const char* toRawValue(Folder folder) {
    switch (folder) {
    case Folder::desktop:
        return "desktop";
    case Folder::documents:
        return "documents";
    case Folder::downloads:
        return "downloads";
    }
    return "";
}

Path pathOf(Folder folder) {
    return QStandardPaths::writableLocation(locationOf(folder)).toStdString();
}

void probe(UserDefaults& defaults, Executor& background, Executor& main,
           std::function<void(const Readable&)> completion) {
    defaults.assign(kAskedKey, true);
    background.post([&main, completion = std::move(completion)] {
        Readable readable;
        for (const Folder folder : kAllFolders)
            readable[folder] = canList(pathOf(folder));
        main.post([completion, readable = std::move(readable)] { completion(readable); });
    });
}

void openSettings(Folder folder) {
    const Path path = pathOf(folder);
    auto* const watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(showProperties(path)), nullptr);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, path] {
        watcher->deleteLater();
        if (watcher->isError())
            QDesktopServices::openUrl(
                QUrl::fromEncoded(QByteArray::fromStdString(fileUri(path.parent_path()))));
    });
}

} // namespace vexmoor::FolderAccess
