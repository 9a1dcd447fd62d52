#pragma once

#include "base/Path.h"

#include <QImage>

#include <optional>
#include <string>

namespace vexmoor {

/// The previews of the user's files that the desktop's programs share (freedesktop.org's thumbnail
/// specification). Whatever lies there may be anybody's making: nothing is decoded before its kind
/// and sizes were looked at. Any thread.
class ThumbnailCache {
  public:
    /// A picture's longest side is at most this, in pixels.
    static constexpr int kSide = 128;

    /// `cacheHome` is where the user's programs keep what they can make again.
    explicit ThumbnailCache(Path cacheHome = defaultCacheHome()) : m_home(std::move(cacheHome)) {}

    /// The preview of an item as it is now; nothing where there is none, or none to be trusted.
    [[nodiscard]] std::optional<QImage> find(const Path& item) const { return find(item, item); }

    /// The same for an item that was moved: the preview that was made of it at `made`.
    [[nodiscard]] std::optional<QImage> find(const Path& item, const Path& made) const;

    /// The item's address as it names previews: escaped as the desktop's programs do.
    static std::string uriOf(const Path& item);

    /// $XDG_CACHE_HOME, or what stands for it.
    static Path defaultCacheHome();

  private:
    Path m_home;
};

} // namespace vexmoor
