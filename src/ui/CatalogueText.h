#pragma once

#include "base/Text.h"

#include <QString>

#include <string_view>

namespace vexmoor {

/// The translation of a text that a catalogue of ours holds as a constant (a skin's name, an
/// achievement's title). `constant` views a whole string literal.
inline QString catalogueText(std::string_view constant) {
    return QString::fromStdString(constant.empty() ? std::string() : text(constant.data()));
}

} // namespace vexmoor
