#include "ErrorCode.h"

#include "Text.h"

#include <cstring>

namespace vexmoor {
namespace {

constexpr int kEndOfSystemCodes = 256; ///< above every errno value

bool isOfSystem(const std::error_code& code) {
    return code.category() == std::generic_category() || code.category() == std::system_category();
}

} // namespace

std::string codeName(const std::error_code& code) {
    if (const auto* const named = dynamic_cast<const NamedCategory*>(&code.category()))
        return named->codeName(code.value());
    const char* const name = isOfSystem(code) ? ::strerrorname_np(code.value()) : nullptr;
    return name != nullptr ? name : code.category().name() + std::to_string(code.value());
}

std::optional<std::error_code> systemCodeNamed(std::string_view name) {
    for (int number = 1; number < kEndOfSystemCodes; ++number)
        if (const char* const known = ::strerrorname_np(number); known != nullptr && name == known)
            return std::error_code(number, std::generic_category());
    return std::nullopt;
}

std::string messageOf(const std::error_code& code) {
    const char* const english =
        InEnglish::isOn() && isOfSystem(code) ? ::strerrordesc_np(code.value()) : nullptr;
    return english != nullptr ? english : code.message();
}

} // namespace vexmoor
