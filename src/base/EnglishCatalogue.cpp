#include "EnglishCatalogue.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

namespace vexmoor {

// translations/en.po, compiled by msgfmt in this machine's byte order.
extern const unsigned char kEnglishCatalogue[];

namespace {

/// Reads a compiled catalogue (gettext manual, "The Format of GNU MO Files"). The source texts are
/// sorted by their bytes; the translations have the same order. A NUL separates the singular and
/// plural forms of a text.
class Table {
  public:
    explicit Table(const unsigned char* data)
        : m_data(data), m_count(number(8)), m_sources(number(12)), m_translations(number(16)) {}

    [[nodiscard]] std::optional<std::string_view> find(std::string_view source) const {
        std::uint32_t first = 0;
        std::uint32_t last = m_count;
        while (first < last) {
            const auto middle = first + (last - first) / 2;
            const auto found = at(m_sources, middle);
            if (found == source)
                return at(m_translations, middle);
            if (found < source)
                first = middle + 1;
            else
                last = middle;
        }
        return std::nullopt;
    }

  private:
    [[nodiscard]] std::uint32_t number(std::uint32_t offset) const {
        std::uint32_t value = 0;
        std::memcpy(&value, m_data + offset, sizeof value);
        return value;
    }

    [[nodiscard]] std::string_view at(std::uint32_t table, std::uint32_t index) const {
        const auto entry = table + 8 * index;
        return {reinterpret_cast<const char*>(m_data) + number(entry + 4), number(entry)};
    }

    const unsigned char* m_data;
    std::uint32_t m_count;
    std::uint32_t m_sources;
    std::uint32_t m_translations;
};

const Table& table() {
    static const Table table(kEnglishCatalogue);
    return table;
}

} // namespace

std::string_view englishText(const char* source) {
    return table().find(source).value_or(source);
}

std::string_view englishText(const char* one, const char* many, bool isOne) {
    const auto forms = table().find(std::string(one) + '\0' + many);
    if (!forms)
        return isOne ? one : many;
    const auto end = forms->find('\0');
    return isOne ? forms->substr(0, end) : forms->substr(end + 1);
}

} // namespace vexmoor
