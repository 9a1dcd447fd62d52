#pragma once

namespace vexmoor {

/// Marks a text in a table for xgettext. The code that shows the text translates it with text().
constexpr const char* marked(const char* source) {
    return source;
}

} // namespace vexmoor
