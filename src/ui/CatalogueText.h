#pragma once

#include "base/Text.h"

#include <QString>

#include <string_view>

namespace vexmoor {

/// Translates a constant of one of our catalogues, such as a skin's name or an achievement's title.
inline QString catalogueText(std::string_view constant) {
    return QString::fromStdString(text(constant));
}

} // namespace vexmoor
