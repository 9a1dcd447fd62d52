#pragma once

#include <cstdint>
#include <string>

namespace vexmoor {

/// A key press or button press of the session, with the constants of the Quartz event services, so
/// that the decisions are the same on every system.
struct InputEvent {
    enum class Type : std::uint32_t {
        leftMouseDown = 1,
        rightMouseDown = 3,
        keyDown = 10,
        otherMouseDown = 25,
        tapDisabledByTimeout = 0xFFFFFFFE,
        tapDisabledByUserInput = 0xFFFFFFFF,
    };
    static constexpr std::int64_t kBackspace = 51;
    static constexpr std::int64_t kZ = 6;
    static constexpr std::int64_t kOtherKey = 0xFFFF; ///< any key that no decision depends on

    static constexpr std::uint64_t kShift = 0x20000;
    static constexpr std::uint64_t kControl = 0x40000;
    static constexpr std::uint64_t kOption = 0x80000;
    static constexpr std::uint64_t kCommand = 0x100000;
    static constexpr std::uint64_t kModifiers = kShift | kControl | kOption | kCommand;

    Type type = Type::keyDown;
    std::int64_t keyCode = kOtherKey;
    std::uint64_t flags = 0;
    bool isRepeat = false;
    std::string characters{}; ///< the key's characters without modifiers
    /// False if the event goes to its application in any case: the file manager binds the key
    /// itself, or the key is not captured.
    bool canBeSwallowed = true;

    bool operator==(const InputEvent&) const = default;
};

enum class Verdict { pass, swallow };

} // namespace vexmoor
