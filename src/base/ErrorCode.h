#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace vexmoor {

/// A domain of errors whose codes have names.
class NamedCategory : public std::error_category {
  public:
    /// What programs know the code by: "goneFromBin". It never changes.
    [[nodiscard]] virtual std::string codeName(int code) const = 0;
};

/// The code's name: of the system's "EACCES" and the like, of ours those of NamedCategory.
std::string codeName(const std::error_code& code);

/// The system's code of that name, or nullopt.
std::optional<std::error_code> systemCodeNamed(std::string_view name);

/// The code's own sentence, "Permission denied", in the user's language.
std::string messageOf(const std::error_code& code);

} // namespace vexmoor
