#pragma once

namespace vexmoor {

/// Whether a processor that this process may use has nothing to do at the moment. Any thread.
bool hasIdleProcessor();

} // namespace vexmoor
