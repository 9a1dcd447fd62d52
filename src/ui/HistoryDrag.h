#pragma once

#include "Accent.h"

#include "disposal/Sacrifice.h"

#include <QMimeData>
#include <QPixmap>

#include <memory>
#include <vector>

namespace vexmoor {

/// The items in the Bin as files for other programs, those that can be put back alone; null if
/// there are none. To be offered for copying only: a program that moved them out of the Bin would
/// leave their records behind.
std::unique_ptr<QMimeData> filesInBin(const std::vector<Sacrifice>& items);

/// What hangs on the pointer: the name, or the count, and that copies will be made.
QPixmap dragPicture(const std::vector<Sacrifice>& items, const QFont& platform,
                    const QPalette& palette, const Accent& accent, double ratio);

} // namespace vexmoor
