#pragma once

#include "disposal/JournalEntry.h"

#include <vector>

namespace vexmoor {

/// The journals that earlier versions left, a file for each batch: "N.open" of one that was not
/// recorded yet, "N.closed" of one that was, kept for its way back. Both are only read, and removed
/// when what they say is in the stores.
class OlderJournals {
  public:
    /// Looks which there are.
    explicit OlderJournals(Path folder);

    /// Numbers of the open ones, oldest first.
    [[nodiscard]] const std::vector<std::int64_t>& open() const { return m_open; }
    /// Numbers of the closed ones, oldest first.
    [[nodiscard]] const std::vector<std::int64_t>& closed() const { return m_closed; }

    /// Fails with bad_message or is_a_directory where it can't be understood. A last line that a
    /// crash cut short is left out.
    [[nodiscard]] Result<JournalBatch> read(std::int64_t number) const;

    /// Moves an open one out of the way and returns where it is.
    Result<Path> setAside(std::int64_t number);

    Result<void> removeOpen(std::int64_t number);
    /// What cannot be removed stays.
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
