#pragma once

#include "base/Path.h"

#include <QHash>
#include <QImage>
#include <QString>

#include <mutex>

namespace vexmoor {

/// The icon theme's images of file types. The type is derived from the name and from whether the
/// item is a folder; no file is opened.
class MimeIcons {
  public:
    /// Returns an item's MIME type, "inode/directory" for a folder. Thread-safe.
    static QString typeOf(const Path& item);

    /// Returns the MIME type for a file name; the file need not exist. Thread-safe.
    static QString typeOfFileNamed(const std::string& name);

    /// Returns the item's icon, at most 128 × 128 pixels, or null if the theme has none. Main
    /// thread only.
    QImage iconOf(const Path& item);
    QImage iconOfType(const QString& type);

    /// Same without loading from the theme: returns the icon already loaded for this type,
    /// otherwise that of any folder or file, otherwise null. Thread-safe.
    [[nodiscard]] QImage knownIconOf(const Path& item) const;

  private:
    QImage remembered(const QString& type);

    mutable std::mutex m_mutex;
    QString m_theme;
    QHash<QString, QImage> m_icons; ///< by MIME type, for the theme m_theme
};

} // namespace vexmoor
