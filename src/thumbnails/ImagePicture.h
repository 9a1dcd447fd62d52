#pragma once

#include "intake/Ports.h"

#include <QImage>

#include <optional>

namespace vexmoor {

/// A picture that holds a QImage.
class ImagePicture : public Picture {
  public:
    explicit ImagePicture(QImage image) : m_image(std::move(image)) {}
    [[nodiscard]] const QImage& image() const { return m_image; }

  private:
    QImage m_image;
};

/// Returns the picture's image, or nullopt if it has none.
inline std::optional<QImage> imageOf(const PicturePointer& picture) {
    const auto* const image = dynamic_cast<const ImagePicture*>(picture.get());
    return image ? std::optional(image->image()) : std::nullopt;
}

} // namespace vexmoor
