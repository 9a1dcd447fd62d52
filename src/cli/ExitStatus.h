#pragma once

namespace vexmoor {

// Exit statuses of all commands.
inline constexpr int kAllDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kUsage = 2;
inline constexpr int kRefused = 3; ///< declined, or a required resource is unavailable

} // namespace vexmoor
