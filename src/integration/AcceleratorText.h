#pragma once

#include "base/Path.h"
#include "integration/Accelerator.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexmoor {

/// The text of one form of configuration file, in which a binding can be ours. Pure functions of
/// the text; what is not ours keeps every byte.
class AcceleratorText {
  public:
    virtual ~AcceleratorText() = default;

    /// nullopt if the text is not such a file's.
    [[nodiscard]] virtual std::optional<AcceleratorStatus>
    status(const std::string& text) const = 0;

    /// The text with our binding, for one whose status is `notInstalled`.
    [[nodiscard]] virtual std::string with(const std::string& text) const = 0;

    /// The text without our binding of Ctrl+Backspace, whatever its status.
    [[nodiscard]] virtual std::string without(const std::string& text) const = 0;

    /// The text of a file that binds nothing, to begin with if there is no file.
    [[nodiscard]] virtual std::string blank() const { return {}; }
};

/// Whether it names Ctrl+Backspace and no more, in any of GTK's spellings: "<Control>BackSpace",
/// "<Primary>BackSpace", "<ctrl>backspace".
bool isCtrlBackspace(std::string_view gtkAccelerator);

/// A binding in a file: to what, and whether that is our menu entry.
struct Binding {
    bool isOurs = false;
    bool isCtrlBackspace = false;
};

/// Another's Ctrl+Backspace counts before ours, and a key of our entry's own before both.
AcceleratorStatus statusOf(const std::vector<Binding>& bindings);

/// The lines of a text, each with its line break.
std::vector<std::string_view> linesOf(std::string_view text);

} // namespace vexmoor
