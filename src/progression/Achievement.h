#pragma once

#include "skins/Skin.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace vexmoor {

struct Progress;

/// A threshold on one measure of the progress. `id` identifies it. Cheap to copy: its texts are
/// views of constants.
struct Achievement {
    /// The unit in which target and measure are shown.
    enum class Unit { count, bytes, days };

    std::string_view id; ///< stored with the progress
    std::string_view title;
    std::string_view flavour;                            ///< one sentence
    std::int64_t target = 0;                             ///< unlocked when the measure reaches this
    std::int64_t (*progress)(const Progress&) = nullptr; ///< the measure
    const Skin* reward = nullptr;                        ///< the skin that it unlocks, or null
    bool secret = false;                                 ///< hidden until it is unlocked
    Unit unit = Unit::count;

    /// Returns the catalogue. Its order is that of checking, unlocking and display. Thread-safe.
    static std::span<const Achievement> all();
};

} // namespace vexmoor
