#include "MimeIcons.h"

#include "ThumbnailCache.h"

#include <QIcon>
#include <QMimeDatabase>

#include <sys/stat.h>

namespace vexmoor {
namespace {

const QString kFolder = QStringLiteral("inode/directory");
const QString kAnyFile = QStringLiteral("application/octet-stream");

QIcon themeIcon(const QString& type) {
    const QMimeType mime = QMimeDatabase().mimeTypeForName(type);
    const QString last =
        type == kFolder ? QStringLiteral("folder") : QStringLiteral("text-x-generic");
    for (const QString& name : {mime.iconName(), mime.genericIconName(), last})
        if (QIcon icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    return {};
}

QImage pictureOf(const QIcon& icon) {
    constexpr QSize kLargest(ThumbnailCache::kSide, ThumbnailCache::kSide);
    QImage image = icon.pixmap(kLargest, 1.0).toImage();
    if (image.width() > kLargest.width() || image.height() > kLargest.height())
        image = image.scaled(kLargest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace

QString MimeIcons::typeOf(const Path& item) {
    struct stat status {};
    if (::stat(item.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return kFolder;
    return typeOfFileNamed(lastComponent(item));
}

QString MimeIcons::typeOfFileNamed(const std::string& bytes) {
    const QString name = QString::fromStdString(displayText(bytes));
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(name);
    return types.isEmpty() ? kAnyFile : types.first().name();
}

QImage MimeIcons::iconOf(const Path& item) {
    return iconOfType(typeOf(item));
}

QImage MimeIcons::iconOfType(const QString& type) {
    if (const QString theme = QIcon::themeName(); theme != m_theme) {
        const std::lock_guard lock(m_mutex);
        m_theme = theme;
        m_icons.clear();
    }
    remembered(kFolder);
    remembered(kAnyFile);
    return remembered(type);
}

QImage MimeIcons::knownIconOf(const Path& item) const {
    const QString type = typeOf(item);
    const std::lock_guard lock(m_mutex);
    return m_icons.value(type, m_icons.value(kAnyFile));
}

QImage MimeIcons::remembered(const QString& type) {
    if (const auto found = m_icons.constFind(type);
        found != m_icons.cend()) // only this thread changes the map
        return *found;
    const QImage image = pictureOf(themeIcon(type));
    const std::lock_guard lock(m_mutex);
    m_icons.insert(type, image);
    return image;
}

} // namespace vexmoor
