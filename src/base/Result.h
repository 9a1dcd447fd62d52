#pragma once

#include "base/ErrorCode.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace vexmoor {

/// Why an operation failed: the error code (of the system or of one of our categories), the
/// operation ("open", "move to the Bin"), and the path it failed on.
struct Error {
    std::error_code code;
    std::string operation;
    std::filesystem::path path;
    std::int64_t count = 0;      ///< number of items, for messages that mention one
    std::vector<Error> causes{}; ///< errors that led to this one

    /// Makes an error from an errno value.
    static Error fromErrno(int number, std::string operation, std::filesystem::path path = {}) {
        return {std::error_code(number, std::generic_category()),
                std::move(operation),
                std::move(path),
                0,
                {}};
    }

    /// Returns the code's message in the user's language, for example "Permission denied".
    [[nodiscard]] std::string message() const { return messageOf(code); }

    bool operator==(const Error&) const = default;
};

/// A value, or the Error that prevented it. Reading the one that is not there is a programming
/// error.
template <typename T>
class [[nodiscard]] Result {
  public:
    Result(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : m_state(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    T& value() & { return *std::get_if<0>(&m_state); }
    const T& value() const& { return *std::get_if<0>(&m_state); }
    T&& value() && { return std::move(*std::get_if<0>(&m_state)); }
    T& operator*() & { return value(); }
    const T& operator*() const& { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }

    const Error& error() const& { return *std::get_if<1>(&m_state); }
    Error&& error() && { return std::move(*std::get_if<1>(&m_state)); }

  private:
    std::variant<T, Error> m_state;
};

/// The value of a Result<void> on success.
struct Done {
    bool operator==(const Done&) const = default;
};

template <>
class [[nodiscard]] Result<void> : public Result<Done> {
  public:
    Result() : Result<Done>(Done{}) {}
    Result(Error error) : Result<Done>(std::move(error)) {}
};

} // namespace vexmoor
