#pragma once

namespace vexmoor {

// What a command ends with.
inline constexpr int kAllDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kUsage = 2;
inline constexpr int kRefused = 3; ///< or what it needs cannot be reached

} // namespace vexmoor
