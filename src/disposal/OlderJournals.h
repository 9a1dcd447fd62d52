#pragma once

#include "disposal/JournalEntry.h"

#include <vector>

namespace vexmoor {

/// Reads the journals of earlier versions, one file per batch: "N.open" for a batch that was not
/// recorded yet, "N.closed" for a recorded one, kept for putting back. They are removed when their
/// content is in the stores.
class OlderJournals {
  public:
    /// Lists the existing journals.
    explicit OlderJournals(Path folder);

    /// Returns the numbers of open journals, oldest first.
    [[nodiscard]] const std::vector<std::int64_t>& open() const { return m_open; }
    /// Returns the numbers of closed journals, oldest first.
    [[nodiscard]] const std::vector<std::int64_t>& closed() const { return m_closed; }

    /// Reads a journal and ignores a truncated last line. Fails with bad_message or is_a_directory
    /// if it cannot be parsed.
    [[nodiscard]] Result<JournalBatch> read(std::int64_t number) const;

    /// Renames an open journal and returns its new path.
    Result<Path> setAside(std::int64_t number);

    Result<void> removeOpen(std::int64_t number);
    /// Removes a closed journal; ignores failures.
    void removeClosed(std::int64_t number);

  private:
    static constexpr std::string_view kOpenEnding = ".open";
    static constexpr std::string_view kClosedEnding = ".closed";

    [[nodiscard]] Path fileOf(std::int64_t number, std::string_view ending) const;

    Path m_folder;
    std::vector<std::int64_t> m_open;
    std::vector<std::int64_t> m_closed;
};

} // namespace vexmoor
