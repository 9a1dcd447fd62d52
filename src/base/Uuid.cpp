#include "Uuid.h"

#include <unistd.h>
#include <uuid.h>

#include <algorithm>

namespace vexmoor {

namespace {

/// Buffers random bytes for several ids: a system call for each id would cost more than the rest of
/// recording an item.
class RandomBytes {
  public:
    /// Returns false if the system has no random bytes.
    bool take(std::array<std::uint8_t, 16>& bytes) {
        if (m_used + bytes.size() > m_bytes.size()) {
            if (::getentropy(m_bytes.data(), m_bytes.size()) != 0)
                return false;
            m_used = 0;
        }
        std::copy_n(m_bytes.begin() + std::ptrdiff_t(m_used), bytes.size(), bytes.begin());
        m_used += bytes.size();
        return true;
    }

  private:
    std::array<std::uint8_t, 256> m_bytes{}; ///< the most that getentropy returns at once
    std::size_t m_used = m_bytes.size();
};

} // namespace

Uuid Uuid::generate() {
    thread_local RandomBytes random;
    Uuid result;
    if (!random.take(result.bytes)) {
        uuid_generate_random(result.bytes.data());
        return result;
    }
    result.bytes[6] = static_cast<std::uint8_t>((result.bytes[6] & 0x0fU) | 0x40U); // version 4
    result.bytes[8] = static_cast<std::uint8_t>((result.bytes[8] & 0x3fU) | 0x80U);
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
