#pragma once

#include "base/Path.h"

#include <QImage>

#include <optional>
#include <string>

namespace vexmoor {

/// The cache of previews that desktop programs share (freedesktop.org's thumbnail specification).
/// Any program can write there, so the format and sizes are checked before decoding. Thread-safe.
class ThumbnailCache {
  public:
    /// The longest side of a picture, in pixels.
    static constexpr int kSide = 128;

    /// `cacheHome` is the user's cache folder (XDG_CACHE_HOME).
    explicit ThumbnailCache(Path cacheHome = defaultCacheHome()) : m_home(std::move(cacheHome)) {}

    /// Returns the preview of an item's current contents, or nullopt if there is none or it is
    /// invalid.
    [[nodiscard]] std::optional<QImage> find(const Path& item) const { return find(item, item); }

    /// Same for a moved item whose preview was made at the path `made`.
    [[nodiscard]] std::optional<QImage> find(const Path& item, const Path& made) const;

    /// Returns the item's URI with the escapes that desktop programs use for preview names.
    static std::string uriOf(const Path& item);

    /// Returns $XDG_CACHE_HOME or its default.
    static Path defaultCacheHome();

  private:
    Path m_home;
};

} // namespace vexmoor
