#pragma once

#include "intake/Ports.h"

#include <QImage>

#include <optional>

namespace vexmoor {

/// An item's picture as the desktop has it.
class ImagePicture : public Picture {
  public:
    explicit ImagePicture(QImage image) : m_image(std::move(image)) {}
    [[nodiscard]] const QImage& image() const { return m_image; }

  private:
    QImage m_image;
};

/// The image of a picture; nothing where there is none.
inline std::optional<QImage> imageOf(const PicturePointer& picture) {
    const auto* const image = dynamic_cast<const ImagePicture*>(picture.get());
    return image ? std::optional(image->image()) : std::nullopt;
}

} // namespace vexmoor
