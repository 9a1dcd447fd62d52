#include "Previews.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QImageWriter>

#include <sys/stat.h>

#include <fstream>
#include <stdexcept>

namespace vexmoor::test {

QByteArray Preview::png() const {
    struct stat status {};
    if (::stat(item.c_str(), &status) != 0)
        throw std::runtime_error("no item to picture: " + item.string());
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    image.setText("Thumb::URI", uri.value_or(QString::fromStdString(fileUri(item))));
    image.setText("Thumb::MTime", changed.value_or(QString::number(status.st_mtim.tv_sec)));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!QImageWriter(&buffer, "png").write(image))
        throw std::runtime_error("cannot encode a preview");
    return bytes;
}

Path Preview::place(const Path& cache, const std::string& flavour) const {
    const QByteArray address = QByteArray::fromStdString(fileUri(item));
    const QByteArray name = QCryptographicHash::hash(address, QCryptographicHash::Md5).toHex();
    return cache / "thumbnails" / flavour / (name.toStdString() + ".png");
}

void Preview::save(const Path& cache, const std::string& flavour) const {
    const QByteArray bytes = png();
    const Path file = place(cache, flavour);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.constData(), bytes.size());
}

} // namespace vexmoor::test
