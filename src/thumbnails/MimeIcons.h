#pragma once

#include "base/Path.h"

#include <QHash>
#include <QImage>
#include <QString>

#include <mutex>

namespace vexmoor {

/// The icon theme's pictures of kinds of files. A kind is told from the name alone (and whether
/// there is a folder): nothing of the user's is opened.
class MimeIcons {
  public:
    /// The kind of an item by its MIME type; "inode/directory" for a folder. Any thread.
    static QString typeOf(const Path& item);

    /// The kind of a file of that name, which may no longer exist. Any thread.
    static QString typeOfFileNamed(const std::string& name);

    /// The icon of an item, at most 128 pixels wide and high; null where the theme has none. The
    /// main thread only.
    QImage iconOf(const Path& item);
    QImage iconOfType(const QString& type);

    /// The same without asking the theme: the icon that was shown for such an item before, or else
    /// for any folder or file. Null where there was none. Any thread.
    [[nodiscard]] QImage knownIconOf(const Path& item) const;

  private:
    QImage remembered(const QString& type);

    mutable std::mutex m_mutex;
    QString m_theme;
    QHash<QString, QImage> m_icons; ///< by type, of that theme
};

} // namespace vexmoor
