#include "Journal.h"

#include "disposal/RecordJson.h"
#include "platform/FileManager.h"

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <map>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr int kFormatVersion = 1;
constexpr std::string_view kOpenEnding = ".open";
constexpr std::string_view kClosedEnding = ".closed";
constexpr std::string_view kDamagedEnding = ".damaged";
constexpr const char* kKindNames[] = {"feed", "put-back", "delete"};

std::optional<JournalKind> kindNamed(const std::string& name) {
    for (const auto kind : {JournalKind::feed, JournalKind::putBack, JournalKind::erase})
        if (kKindNames[static_cast<int>(kind)] == name)
            return kind;
    return std::nullopt;
}

Json entryJson(const JournalEntry& entry) {
    Json json = {
        {"intent", toJson(entry.sacrifice)}, {"folder", entry.isFolder}, {"inode", entry.inode}};
    if (entry.destination)
        json["destination"] = pathToJsonText(entry.destination->native());
    return json;
}

std::optional<JournalEntry> entryFromJson(const Json& json) {
    auto sacrifice = sacrificeFromJson(json["intent"]);
    if (!sacrifice)
        return std::nullopt;
    JournalEntry entry;
    entry.sacrifice = *std::move(sacrifice);
    entry.isFolder = json.value("folder", false);
    entry.inode = json.value("inode", std::uint64_t{0});
    if (const auto found = json.find("destination"); found != json.end())
        entry.destination = pathFromJsonText(found->get<std::string>());
    return entry;
}

/// Gathers a journal's lines into its entries.
class Gatherer {
  public:
    explicit Gatherer(JournalBatch& batch) : m_batch(batch) {}

    /// False where an intent can't be understood.
    bool take(const Json& line) {
        if (line.contains("intent")) {
            auto entry = entryFromJson(line);
            if (!entry || !hasAllPaths(*entry))
                return false;
            const auto [found, isNew] =
                m_places.emplace(entry->sacrifice.id, m_batch.entries.size());
            if (isNew)
                m_batch.entries.push_back(*std::move(entry));
            else
                m_batch.entries[found->second] = *std::move(entry);
            return true;
        }
        for (const auto& [key, outcome] : {std::pair("done", JournalEntry::Outcome::done),
                                           std::pair("failed", JournalEntry::Outcome::failed)}) {
            const auto found = line.find(key);
            const auto id =
                found != line.end() ? Uuid::fromString(found->get<std::string>()) : std::nullopt;
            const auto place = id ? m_places.find(*id) : m_places.end();
            if (place != m_places.end())
                m_batch.entries[place->second].outcome = outcome;
        }
        return true;
    }

  private:
    [[nodiscard]] bool hasAllPaths(const JournalEntry& entry) const {
        return entry.sacrifice.original &&
               (entry.sacrifice.trashed || m_batch.mode == DisposeMode::dissolve) &&
               (entry.destination || m_batch.kind != JournalKind::putBack);
    }

    JournalBatch& m_batch;
    std::map<Uuid, std::size_t> m_places;
};

/// Whether something can be put back from such a batch's journal.
bool isKept(JournalKind kind, DisposeMode mode) {
    return kind == JournalKind::feed && mode == DisposeMode::bin;
}

/// Makes the new journal of the oldest, which goes anyway: on many file systems making and deleting
/// a file costs more than all else that a small batch does. It is emptied before it is renamed, so
/// that old entries never stand under a new number. Without a descriptor where that fails.
FileDescriptor renew(const Path& oldest, const Path& file) {
    FileDescriptor descriptor(::open(oldest.c_str(), O_WRONLY | O_TRUNC | O_APPEND | O_CLOEXEC));
    if (descriptor && ::rename(oldest.c_str(), file.c_str()) != 0)
        descriptor.reset();
    return descriptor;
}

bool readHeader(const Json& line, JournalBatch& batch) {
    if (!line.is_object() || line.value("journal", 0) != kFormatVersion)
        return false;
    const auto kind = kindNamed(line.value("kind", ""));
    const auto mode = disposeModeFromRawValue(line.value("mode", ""));
    if (!kind || !mode)
        return false;
    batch.kind = *kind;
    batch.mode = *mode;
    return true;
}

} // namespace

JournalWriter::JournalWriter(Path file, FileDescriptor descriptor, std::int64_t number,
                             std::string header)
    : m_file(std::move(file)), m_descriptor(std::move(descriptor)), m_number(number),
      m_buffer(std::move(header)) {}

Result<void> JournalWriter::intend(const JournalEntry& entry) {
    m_buffer += entryJson(entry).dump() + "\n";
    return flush();
}

void JournalWriter::conclude(const Uuid& id, bool done) {
    m_buffer +=
        R"({")" + std::string(done ? "done" : "failed") + R"(":")" + id.toString() + "\"}\n";
}

Result<void> JournalWriter::flush() {
    std::string_view rest = m_buffer;
    while (!rest.empty()) {
        const ssize_t written = ::write(m_descriptor.get(), rest.data(), rest.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            const Error error = Error::fromErrno(written == 0 ? ENOSPC : errno, "write", m_file);
            // The next call goes on where this stopped, so that no line stays torn.
            m_buffer.erase(0, m_buffer.size() - rest.size());
            return error;
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    m_buffer.clear();
    return {};
}

Result<std::unique_ptr<JournalWriter>> Journal::begin(JournalKind kind, DisposeMode mode,
                                                      std::int64_t lastRecorded) {
    if (auto made = makeFolders(m_folder, 0700); !made)
        return std::move(made).error();
    const auto [opened, kept, greatest] = list();
    std::int64_t number = std::max({lastRecorded, m_last, greatest});
    for (std::size_t i = kKept; i < kept.size(); ++i)
        ::unlink(fileOf(kept[i], kClosedEnding).c_str());
    m_last = ++number;
    const Path file = fileOf(number, kOpenEnding);
    FileDescriptor descriptor;
    if (isKept(kind, mode) && kept.size() >= kKept)
        descriptor = renew(fileOf(kept[kKept - 1], kClosedEnding), file);
    if (!descriptor)
        descriptor = FileDescriptor(
            ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600));
    if (!descriptor)
        return Error::fromErrno(errno, "write", file);
    const Json header = {{"journal", kFormatVersion},
                         {"kind", kKindNames[static_cast<int>(kind)]},
                         {"mode", toRawValue(mode)}};
    return std::make_unique<JournalWriter>(file, std::move(descriptor), number,
                                           header.dump() + "\n");
}

Result<void> Journal::close(std::int64_t number, JournalKind kind, DisposeMode mode) {
    const Path file = fileOf(number, kOpenEnding);
    const int ended = isKept(kind, mode)
                          ? ::rename(file.c_str(), fileOf(number, kClosedEnding).c_str())
                          : ::unlink(file.c_str());
    if (ended != 0 && errno != ENOENT)
        return Error::fromErrno(errno, "close", file);
    return {};
}

Result<Path> Journal::setAside(std::int64_t number) {
    const Path file = fileOf(number, kOpenEnding);
    Path aside = fileOf(number, kDamagedEnding);
    if (::rename(file.c_str(), aside.c_str()) != 0)
        return Error::fromErrno(errno, "set aside", file);
    return aside;
}

std::vector<std::int64_t> Journal::open() const {
    return list().open;
}

std::vector<std::int64_t> Journal::closed() const {
    return list().closed;
}

Journal::Numbers Journal::list() const {
    Numbers numbers;
    std::error_code code;
    for (std::filesystem::directory_iterator entry(m_folder, code), end; !code && entry != end;
         entry.increment(code)) {
        const std::string name = entry->path().filename();
        std::int64_t number = 0;
        const auto [rest, parsed] = std::from_chars(name.data(), name.data() + name.size(), number);
        const std::string_view ending(rest,
                                      static_cast<std::size_t>(name.data() + name.size() - rest));
        if (parsed != std::errc())
            continue;
        if (ending == kOpenEnding)
            numbers.open.push_back(number);
        else if (ending == kClosedEnding)
            numbers.closed.push_back(number);
        else if (ending != kDamagedEnding)
            continue;
        numbers.greatest = std::max(numbers.greatest, number);
    }
    std::ranges::sort(numbers.open);
    std::ranges::sort(numbers.closed, std::greater());
    return numbers;
}

Path Journal::fileOf(std::int64_t number, std::string_view ending) const {
    return m_folder / (std::to_string(number) + std::string(ending));
}

Result<JournalBatch> Journal::read(std::int64_t number) const {
    Path file = fileOf(number, kOpenEnding);
    std::ifstream stream(file);
    if (!stream) {
        file = fileOf(number, kClosedEnding);
        stream.open(file);
    }
    if (!stream)
        return Error::fromErrno(errno, "read", file);
    JournalBatch batch;
    batch.number = number;
    Gatherer gatherer(batch);
    std::string text;
    for (bool isFirst = true; std::getline(stream, text); isFirst = false) {
        const Json line = Json::parse(text, nullptr, false);
        try {
            if (isFirst && stream.eof())
                return batch; // cut off in its first line: nothing was begun
            if (isFirst && line.is_object() && line.value("journal", 0) > kFormatVersion)
                return Error::fromErrno(ENOTSUP, "read the newer format of", file);
            if (isFirst && !readHeader(line, batch))
                return Error::fromErrno(EBADMSG, "read", file);
            if (line.is_object() && !isFirst && !gatherer.take(line))
                return Error::fromErrno(EBADMSG, "read", file);
        } catch (const Json::exception&) {
            return Error::fromErrno(EBADMSG, "read", file);
        }
    }
    if (stream.bad())
        return Error::fromErrno(errno != 0 ? errno : EIO, "read", file);
    return batch;
}

} // namespace vexmoor
