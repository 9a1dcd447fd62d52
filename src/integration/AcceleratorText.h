#pragma once

#include "base/Path.h"
#include "integration/Accelerator.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexmoor {

/// The text of one format of configuration file that may contain our binding. Its functions depend
/// only on the text and keep all other bytes.
class AcceleratorText {
  public:
    virtual ~AcceleratorText() = default;

    /// Returns nullopt if the text is not in this format.
    [[nodiscard]] virtual std::optional<AcceleratorStatus>
    status(const std::string& text) const = 0;

    /// Returns the text with our binding. The status must be `notInstalled`.
    [[nodiscard]] virtual std::string with(const std::string& text) const = 0;

    /// Returns the text without our Ctrl+Backspace binding, for any status.
    [[nodiscard]] virtual std::string without(const std::string& text) const = 0;

    /// Returns the text of a file without bindings, used to create a missing file.
    [[nodiscard]] virtual std::string blank() const { return {}; }
};

/// True if the text is exactly Ctrl+Backspace, in any of GTK's spellings: "<Control>BackSpace",
/// "<Primary>BackSpace", "<ctrl>backspace".
bool isCtrlBackspace(std::string_view gtkAccelerator);

/// A binding in a file.
struct Binding {
    bool isOurs = false;
    bool isCtrlBackspace = false;
};

/// Combines bindings: another key on our entry has precedence, then another entry's Ctrl+Backspace,
/// then our binding.
AcceleratorStatus statusOf(const std::vector<Binding>& bindings);

/// Splits the text into lines that keep their line breaks.
std::vector<std::string_view> linesOf(std::string_view text);

} // namespace vexmoor
