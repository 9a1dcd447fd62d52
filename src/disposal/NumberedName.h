#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vexmoor {

/// A file name in two: what stands before the extension's dot, and the extension (pathExtension).
std::pair<std::string_view, std::string_view> splitExtension(std::string_view name);

/// The name to put back under when `name` is taken: "report 2.pdf", shortened like storedName() but
/// to 255 bytes.
std::string numberedName(std::string_view name, unsigned number);

/// The name to store in the Bin, at most 245 bytes so that its info file's name fits: the name
/// itself for number 1, else with the number before the extension ("report.2.pdf"). A name that is
/// too long loses the end of its stem, at a character's border where it is UTF-8.
std::string storedName(std::string_view name, unsigned number);

} // namespace vexmoor
