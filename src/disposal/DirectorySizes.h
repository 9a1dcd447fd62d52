#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vexmoor {

/// Updates of a Bin's directorysizes file, a cache of the allocated sizes of its folders
/// (FreeDesktop.org Trash specification 1.0). Collects changes and writes them together.
class DirectorySizes {
  public:
    struct Entry {
        std::int64_t bytes = 0;
        std::int64_t infoModifiedSeconds = 0;
        bool operator==(const Entry&) const = default;
    };

    void set(std::string storedName, Entry entry) { m_changes[std::move(storedName)] = entry; }
    void remove(std::string storedName) { m_changes[std::move(storedName)] = std::nullopt; }

    /// Merges the changes into the file: reads it, writes a temporary file and renames it. Drops
    /// invalid lines. Does not write if nothing changed.
    void flush(int binFolder);

    /// Returns the file's entries by stored name.
    static std::map<std::string, Entry> parse(const std::string& text);

  private:
    std::map<std::string, std::optional<Entry>> m_changes;
};

} // namespace vexmoor
