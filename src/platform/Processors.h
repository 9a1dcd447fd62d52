#pragma once

namespace vexmoor {

/// True if a processor available to this process is idle. Thread-safe.
bool hasIdleProcessor();

} // namespace vexmoor
