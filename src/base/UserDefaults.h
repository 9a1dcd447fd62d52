#pragma once

#include "base/Result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vexmoor {

/// The user's key-value store (port). The four kinds are told apart: a value is read only as the
/// kind that was stored. One thread.
class UserDefaults {
  public:
    struct Data {
        std::string bytes;
        bool operator==(const Data&) const = default;
    };
    using Value = std::variant<bool, std::int64_t, std::string, Data>;

    /// What a transaction has to survive when it returns: a power cut, or, as something else knows
    /// of it that does, only this process.
    enum class Durability { onDisk, journaled };

    virtual ~UserDefaults() = default;

    /// The value under the key, if there is one.
    [[nodiscard]] virtual std::optional<Value> value(std::string_view key) const = 0;

    /// Stores the value, or removes the key where there is none. Outside transaction() this is one
    /// committed transaction; a failure goes to the store's failure handler.
    virtual void assign(std::string_view key, std::optional<Value> value) = 0;

    /// Runs `body` and commits all that it assigned as one transaction, synchronously. After a
    /// power cut `journaled` ones may be missing, the newest first, unless one `onDisk` came after
    /// them. A failure to store is returned, and nothing of the body's assignments is stored then:
    /// they can be read from this object, and are stored together with what is assigned next.
    virtual Result<void> transaction(const std::function<void()>& body,
                                     Durability durability = Durability::onDisk) = 0;

    /// Brings all that was committed to the disk.
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
