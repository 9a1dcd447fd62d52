#include "ThumbnailCache.h"

#include "base/FileDescriptor.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace vexmoor {
namespace {

// Metadata keys in a thumbnail that identify its file.
const auto kUri = QStringLiteral("Thumb::URI");
const auto kTime = QStringLiteral("Thumb::MTime");

/// A cache folder and the longest side of its previews.
struct Flavour {
    const char* folder;
    int side;
};
constexpr std::array<Flavour, 2> kFlavours{{{"normal", 128}, {"large", 256}}};

/// Many times the size of the largest uncompressed preview.
constexpr off_t kLargestFile = 1 << 20;

/// Reads a regular file. Does not follow links or block on pipes.
std::optional<QByteArray> smallFile(const Path& path) {
    const FileDescriptor file(
        ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > kLargestFile)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(status.st_size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = ::read(file.get(), bytes.data() + filled,
                                     static_cast<std::size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return std::nullopt;
        filled += count;
    }
    return bytes;
}

/// True if a preview's time equals the file's. Some programs write whole seconds, others a fraction
/// too.
bool isTime(const QString& text, const timespec& changed) {
    const QString fraction = QString::number(changed.tv_nsec).rightJustified(9, '0');
    return text.section('.', 0, 0) == QString::number(changed.tv_sec) &&
           fraction.startsWith(text.section('.', 1));
}

/// Decodes a preview if it was made of that file with that modification time.
std::optional<QImage> preview(QByteArray png, const Flavour& flavour, const std::string& uri,
                              const timespec& changed) {
    QBuffer buffer(&png);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > flavour.side || size.height() > flavour.side)
        return std::nullopt;
    QImage image = reader.read();
    if (image.isNull() || image.text(kUri).toStdString() != uri ||
        !isTime(image.text(kTime), changed))
        return std::nullopt;
    constexpr int kSide = ThumbnailCache::kSide;
    if (image.width() > kSide || image.height() > kSide)
        image = image.scaled(kSide, kSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}

} // namespace

std::optional<QImage> ThumbnailCache::find(const Path& item, const Path& made) const {
    struct stat status {};
    if (::stat(item.c_str(), &status) != 0)
        return std::nullopt;
    const std::string uri = uriOf(made);
    const QByteArray name =
        QCryptographicHash::hash(QByteArray::fromStdString(uri), QCryptographicHash::Md5).toHex() +
        ".png";
    for (const Flavour& flavour : kFlavours) {
        auto bytes = smallFile(m_home / "thumbnails" / flavour.folder / name.toStdString());
        if (!bytes)
            continue;
        if (auto image = preview(*std::move(bytes), flavour, uri, status.st_mtim))
            return image;
    }
    return std::nullopt;
}

std::string ThumbnailCache::uriOf(const Path& item) {
    // fileUri() escapes more characters, but a preview's file name depends on the exact URI text.
    constexpr std::string_view kPlain = "&=:@+$,";
    std::string uri = "file://";
    const std::string& bytes = item.native();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (kPlain.find(bytes[i]) != std::string_view::npos)
            uri += bytes[i];
        else
            uri += percentEncoded({&bytes[i], 1});
    }
    return uri;
}

Path ThumbnailCache::defaultCacheHome() {
    const char* const cache = std::getenv("XDG_CACHE_HOME");
    if (cache != nullptr && Path(cache).is_absolute())
        return cache;
    const char* const home = std::getenv("HOME");
    return Path(home != nullptr ? home : "/") / ".cache";
}

} // namespace vexmoor
