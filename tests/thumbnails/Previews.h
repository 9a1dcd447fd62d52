#pragma once

#include "base/Path.h"

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QString>

#include <optional>

namespace vexmoor::test {

/// A preview as a thumbnailer writes it.
struct Preview {
    Path item;
    QSize size = {96, 128};
    QColor colour = Qt::red;
    std::optional<QString> uri = {};     ///< where it shall not be the item's
    std::optional<QString> changed = {}; ///< likewise, in seconds

    [[nodiscard]] QByteArray png() const;

    /// Where programs look for it under a cache folder; the flavour is "normal" or "large".
    [[nodiscard]] Path place(const Path& cache, const std::string& flavour = "normal") const;

    /// Writes it to its place.
    void save(const Path& cache, const std::string& flavour = "normal") const;
};

} // namespace vexmoor::test
