#include "Journal.h"

#include "base/Text.h"
#include "platform/FileManager.h"

#include <fcntl.h>

#include <algorithm>
#include <utility>

namespace vexmoor {

JournalWriter::JournalWriter(Journal& journal, std::int64_t number, std::string header)
    : m_journal(journal), m_number(number), m_header(std::move(header)) {}

JournalPosition JournalWriter::end() const {
    return m_journal.m_end;
}

Result<void> JournalWriter::write(const std::string& lines) {
    auto end = m_journal.m_file->write(m_journal.m_end, m_journal.m_synced, m_header + lines);
    if (!end)
        return std::move(end).error();
    m_journal.m_end.offset = *end;
    m_outcomes.clear();
    return {};
}

Result<void> JournalWriter::sync() {
    const auto intents = std::exchange(m_intents, {});
    if (intents.empty())
        return {};
    if (auto written = write(m_outcomes + intents); !written)
        return written;
    if (auto synced = m_journal.m_file->sync(); !synced)
        return synced;
    m_journal.m_synced = m_journal.m_end.offset;
    return {};
}

Result<void> JournalWriter::flush() {
    return m_outcomes.empty() ? Result<void>() : write(m_outcomes);
}

Result<void> Journal::openAt(const JournalStart& start) {
    if (m_file)
        return {};
    if (auto made = makeFolders(m_folder, 0700); !made)
        return made;
    auto file = JournalFile::open(this->file());
    const bool isMissing = !file && file.error().code == std::errc::no_such_file_or_directory;
    if (isMissing)
        file = JournalFile::make(this->file());
    if (!file)
        return std::move(file).error();
    // A file of another generation was handled by recovery: the stores contain all of it.
    m_end = isMissing || file->generation() != start.recorded.generation ? JournalPosition()
                                                                         : start.recorded;
    m_synced = m_end.offset;
    m_file = *std::move(file);
    return {};
}

Result<std::unique_ptr<JournalWriter>> Journal::begin(JournalKind kind, DisposeMode mode,
                                                      const JournalStart& start) {
    if (auto opened = openAt(start); !opened)
        return std::move(opened).error();
    const auto number = std::max({start.lastRecorded, m_last, m_end.generation}) + 1;
    const bool beginsAgain = isFull(m_end) && start.isDurable && start.recorded == m_end;
    if (beginsAgain)
        m_file->shrink();
    if (beginsAgain || m_end.generation == 0) {
        m_end = {number, 0};
        m_synced = 0;
    }
    m_last = number;
    return std::make_unique<JournalWriter>(*this, number, headerLine(number, kind, mode));
}

bool Journal::holdsMoreThan(JournalPosition recorded) const {
    const auto file = JournalFile::open(this->file());
    if (!file)
        return recorded.generation != 0 ||
               file.error().code != std::errc::no_such_file_or_directory;
    if (recorded.generation == 0 && file->generation() == 0)
        return false; // the file was created but never written
    return !file->endsAt(recorded);
}

Result<Journal::Unrecorded> Journal::unrecorded(JournalPosition recorded) const {
    Unrecorded unrecorded;
    unrecorded.end = recorded;
    const auto file = JournalFile::open(this->file());
    if (!file && file.error().code != std::errc::no_such_file_or_directory)
        return file.error();
    const auto generation = file ? file->generation() : 0;
    if (generation == 0 || generation < recorded.generation) {
        unrecorded.isLost = recorded.generation != 0;
        return unrecorded;
    }
    JournalPosition from = recorded;
    if (generation > recorded.generation)
        from = {generation, 0};
    auto contents = file->read(from);
    if (!contents)
        return std::move(contents).error();
    unrecorded.isDamaged = contents->isDamaged;
    for (const auto& block : contents->blocks) {
        if (auto read = readLines(block.text, unrecorded.batches); !read) {
            if (read.error().code == std::errc::not_supported)
                return Error{read.error().code, marked("read the newer format of"), this->file()};
            unrecorded.isDamaged = true;
        }
        if (!unrecorded.batches.empty())
            unrecorded.batches.back().end = {generation, block.end};
    }
    unrecorded.end = {generation, contents->end};
    return unrecorded;
}

Result<Path> Journal::setAside() {
    m_file.reset();
    for (int number = 1;; ++number) {
        Path aside = m_folder / (std::to_string(number) + ".damaged");
        const auto moved = moveWithoutReplacing(AT_FDCWD, file().c_str(), AT_FDCWD, aside.c_str());
        if (moved)
            return aside;
        if (moved.error().code != std::errc::file_exists)
            return Error{moved.error().code, marked("set aside"), file()};
    }
}

} // namespace vexmoor
