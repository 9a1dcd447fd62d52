#include "Uuid.h"

#include <uuid.h>

namespace vexmoor {

Uuid Uuid::generate() {
    Uuid result;
    uuid_generate_random(result.bytes.data());
    return result;
}

std::optional<Uuid> Uuid::fromString(std::string_view text) {
    Uuid result;
    if (text.size() != 36 || uuid_parse(std::string(text).c_str(), result.bytes.data()) != 0)
        return std::nullopt;
    return result;
}

std::string Uuid::toString() const {
    std::string text(36, '\0');
    uuid_unparse_upper(bytes.data(), text.data());
    return text;
}

} // namespace vexmoor
