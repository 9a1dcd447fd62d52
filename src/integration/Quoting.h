#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

// One word of a command, written so that it comes out as it is. A word of plain characters stays
// itself.

/// For a POSIX shell, and for GLib's splitting of command lines.
std::string shellQuoted(std::string_view word);

/// For the `Exec` of a desktop entry: its own quotes, doubled "%", and the escapes that any text of
/// such a file needs.
std::string desktopExecQuoted(std::string_view word);

/// A text as the value of a key in a desktop entry or key file.
std::string keyFileEscaped(std::string_view text);

/// A text as the content of an XML element.
std::string xmlEscaped(std::string_view text);

/// Every "%" doubled, for commands in which it begins a field.
std::string percentDoubled(std::string_view text);

} // namespace vexmoor
