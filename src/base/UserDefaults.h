#pragma once

#include "base/Result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vexmoor {

/// The user's key-value store (port). Values are typed: reading one as another kind than was stored
/// returns nullopt. Not thread-safe.
class UserDefaults {
  public:
    struct Data {
        std::string bytes;
        bool operator==(const Data&) const = default;
    };
    using Value = std::variant<bool, std::int64_t, std::string, Data>;

    /// What a committed transaction survives: a power cut, or only the end of this process, if the
    /// journal can restore it after a power cut.
    enum class Durability { onDisk, journaled };

    virtual ~UserDefaults() = default;

    /// Returns the value of the key, or nullopt.
    [[nodiscard]] virtual std::optional<Value> value(std::string_view key) const = 0;

    /// Stores the value, or removes the key if there is none. Outside transaction() this is its own
    /// transaction; failures go to the store's failure handler.
    virtual void assign(std::string_view key, std::optional<Value> value) = 0;

    /// Runs `body` and commits its assignments as one transaction, synchronously. A power cut can
    /// lose `journaled` transactions, the newest first, until one with `onDisk` follows. On failure
    /// returns the error and stores none of the assignments: this object keeps them, and stores
    /// them with the next transaction.
    virtual Result<void> transaction(const std::function<void()>& body,
                                     Durability durability = Durability::onDisk) = 0;

    /// Syncs everything committed so far to the disk.
    virtual Result<void> makeDurable() = 0;

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const { return as<bool>(key); }
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const {
        return as<std::int64_t>(key);
    }
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const {
        return as<std::string>(key);
    }
    [[nodiscard]] std::optional<Data> data(std::string_view key) const { return as<Data>(key); }

  private:
    template <typename T>
    std::optional<T> as(std::string_view key) const {
        auto stored = value(key);
        if (T* const wanted = stored ? std::get_if<T>(&*stored) : nullptr)
            return std::move(*wanted);
        return std::nullopt;
    }
};

} // namespace vexmoor
