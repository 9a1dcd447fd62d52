#pragma once

#include <string>
#include <string_view>

namespace vexmoor {

// These functions quote one word of a command. A word of plain characters stays unchanged.

/// Quotes for a POSIX shell and for GLib's command line parser.
std::string shellQuoted(std::string_view word);

/// Quotes for a desktop entry's `Exec`: its own quotes, doubled "%", and the escapes of key file
/// values.
std::string desktopExecQuoted(std::string_view word);

/// Escapes a value in a desktop entry or key file.
std::string keyFileEscaped(std::string_view text);

/// Escapes the content of an XML element.
std::string xmlEscaped(std::string_view text);

/// Doubles each "%", for commands in which it starts a field code.
std::string percentDoubled(std::string_view text);

} // namespace vexmoor
