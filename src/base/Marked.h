#pragma once

namespace vexmoor {

/// Marks a text that stands in a table, so that xgettext finds it; text() translates it where it is
/// shown.
constexpr const char* marked(const char* source) {
    return source;
}

} // namespace vexmoor
