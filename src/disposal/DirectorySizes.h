#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vexmoor {

/// Changes to a Bin's directorysizes file, a cache of the allocated sizes of the folders in it
/// (FreeDesktop.org Trash specification 1.0). They are gathered and written together.
class DirectorySizes {
  public:
    struct Entry {
        std::int64_t bytes = 0;
        std::int64_t infoModifiedSeconds = 0;
        bool operator==(const Entry&) const = default;
    };

    void set(std::string storedName, Entry entry) { m_changes[std::move(storedName)] = entry; }
    void remove(std::string storedName) { m_changes[std::move(storedName)] = std::nullopt; }

    /// Merges the changes into the file in the Bin's folder: read tolerantly, written to a
    /// temporary file, renamed. Lines that cannot be understood are dropped. Where there is nothing
    /// to change the file is left alone.
    void flush(int binFolder);

    /// The file's entries by stored name.
    static std::map<std::string, Entry> parse(const std::string& text);

  private:
    std::map<std::string, std::optional<Entry>> m_changes;
};

} // namespace vexmoor
