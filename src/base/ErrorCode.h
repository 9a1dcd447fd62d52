#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace vexmoor {

/// An error category whose codes have names.
class NamedCategory : public std::error_category {
  public:
    /// Returns the stable name that programs see, for example "goneFromBin".
    [[nodiscard]] virtual std::string codeName(int code) const = 0;
};

/// Returns a code's name: "EACCES" and so on for the system's errors, NamedCategory's name for
/// ours.
std::string codeName(const std::error_code& code);

/// Returns the system's error code with that name, or nullopt.
std::optional<std::error_code> systemCodeNamed(std::string_view name);

/// Returns the code's message in the user's language, for example "Permission denied".
std::string messageOf(const std::error_code& code);

} // namespace vexmoor
