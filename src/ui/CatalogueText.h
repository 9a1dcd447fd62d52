#pragma once

#include "base/Text.h"

#include <QString>

#include <string_view>

namespace vexmoor {

/// The translation of a text that a catalogue of ours holds as a constant: a skin's name, an
/// achievement's title.
inline QString catalogueText(std::string_view constant) {
    return QString::fromStdString(text(constant));
}

} // namespace vexmoor
