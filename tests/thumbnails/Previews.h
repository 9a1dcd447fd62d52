#pragma once

#include "base/Path.h"

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QString>

#include <optional>

namespace vexmoor::test {

/// A preview in the form a thumbnailer writes.
struct Preview {
    Path item;
    QSize size = {96, 128};
    QColor colour = Qt::red;
    std::optional<QString> uri = {};     ///< overrides the item's URI
    std::optional<QString> changed = {}; ///< overrides the item's time, in seconds

    [[nodiscard]] QByteArray png() const;

    /// Returns the preview's path in a cache folder; the flavour is "normal" or "large".
    [[nodiscard]] Path place(const Path& cache, const std::string& flavour = "normal") const;

    /// Writes the preview to its path.
    void save(const Path& cache, const std::string& flavour = "normal") const;
};

} // namespace vexmoor::test
