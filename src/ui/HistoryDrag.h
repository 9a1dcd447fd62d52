#pragma once

#include "Accent.h"

#include "disposal/Sacrifice.h"

#include <QMimeData>
#include <QPixmap>

#include <memory>
#include <vector>

namespace vexmoor {

/// Returns the items that are in the Bin as files for other programs, or null if there are none.
/// Offer them for copying only: a program that moved them would leave stale records.
std::unique_ptr<QMimeData> filesInBin(const std::vector<Sacrifice>& items);

/// Returns the drag image: the name or the count, and a note that files are copied.
QPixmap dragPicture(const std::vector<Sacrifice>& items, const QFont& platform,
                    const QPalette& palette, const Accent& accent, double ratio);

} // namespace vexmoor
