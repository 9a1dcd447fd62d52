#include "JournalEntry.h"

#include "base/JsonReader.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <map>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr int kFormatVersion = 2; ///< lines of version 1 are the same, with fewer keys
constexpr const char* kKindNames[] = {"feed", "put-back", "delete"};

std::optional<JournalKind> kindNamed(const std::string& name) {
    for (const auto kind : {JournalKind::feed, JournalKind::putBack, JournalKind::erase})
        if (kKindNames[static_cast<int>(kind)] == name)
            return kind;
    return std::nullopt;
}

std::optional<Path> pathUnder(const Json& json, const char* key) {
    const auto found = json.find(key);
    return found == json.end() ? std::nullopt
                               : std::optional(pathFromJsonText(found->get<std::string>()));
}

std::optional<JournalEntry> entryFromJson(const Json& json) {
    auto sacrifice = recordFromJson(json["intent"]);
    if (!sacrifice)
        return std::nullopt;
    JournalEntry entry;
    entry.sacrifice = *std::move(sacrifice);
    entry.isFolder = json.value("folder", false);
    entry.inode = json.value("inode", std::uint64_t{0});
    entry.destination = pathUnder(json, "destination");
    entry.volume = pathUnder(json, "volume");
    entry.fileSystem = json.value("fileSystem", std::string());
    return entry;
}

bool hasAllPaths(const JournalBatch& batch, const JournalEntry& entry) {
    return entry.sacrifice.original &&
           (entry.sacrifice.trashed || batch.mode == DisposeMode::dissolve) &&
           (entry.destination || batch.kind != JournalKind::putBack);
}

/// Assembles batches from lines.
class Gatherer {
  public:
    explicit Gatherer(std::vector<JournalBatch>& batches) : m_batches(batches) {
        if (!batches.empty())
            resume();
    }

    /// Returns an errno value; 0 if the line is valid.
    int take(const Json& line) {
        if (!line.is_object())
            return EBADMSG;
        if (line.contains("journal"))
            return takeHeader(line);
        if (m_batches.empty())
            return EBADMSG;
        if (line.contains("intent"))
            return takeIntent(line) ? 0 : EBADMSG;
        takeOutcome(line);
        return 0;
    }

  private:
    int takeHeader(const Json& line) {
        JournalBatch batch;
        if (line.value("journal", 0) > kFormatVersion)
            return ENOTSUP;
        const auto kind = kindNamed(line.value("kind", ""));
        const auto mode = disposeModeFromRawValue(line.value("mode", ""));
        batch.number = line.value("number", std::int64_t{0});
        if (line.value("journal", 0) < 1 || !kind || !mode)
            return EBADMSG;
        batch.kind = *kind;
        batch.mode = *mode;
        if (m_batches.empty() || m_batches.back().number != batch.number) {
            m_batches.push_back(std::move(batch));
            resume();
        }
        return 0;
    }

    bool takeIntent(const Json& line) {
        auto entry = entryFromJson(line);
        auto& batch = m_batches.back();
        if (!entry || !hasAllPaths(batch, *entry))
            return false;
        const auto [found, isNew] = m_places.emplace(entry->sacrifice.id, batch.entries.size());
        if (isNew)
            batch.entries.push_back(*std::move(entry));
        else
            batch.entries[found->second] = *std::move(entry);
        return true;
    }

    void takeOutcome(const Json& line) {
        for (const char* const key : {"begun", "done", "failed"}) {
            const auto found = line.find(key);
            const auto id =
                found != line.end() ? Uuid::fromString(found->get<std::string>()) : std::nullopt;
            const auto place = id ? m_places.find(*id) : m_places.end();
            if (place == m_places.end())
                continue;
            auto& entry = m_batches.back().entries[place->second];
            entry.isBegun = true;
            if (*key == 'd')
                entry.outcome = JournalEntry::Outcome::done;
            if (*key == 'f') {
                entry.outcome = JournalEntry::Outcome::failed;
                entry.failure = line.value("why", "");
            }
        }
    }

    /// Continues the last batch.
    void resume() {
        m_places.clear();
        const auto& entries = m_batches.back().entries;
        for (std::size_t i = 0; i < entries.size(); ++i)
            m_places.emplace(entries[i].sacrifice.id, i);
    }

    std::vector<JournalBatch>& m_batches;
    std::map<Uuid, std::size_t> m_places;
};

std::string outcomeLine(const char* key, const Uuid& id) {
    return R"({")" + std::string(key) + R"(":")" + id.toString() + "\"}\n";
}

} // namespace

std::string headerLine(std::int64_t number, JournalKind kind, DisposeMode mode) {
    return R"({"journal":)" + std::to_string(kFormatVersion) + R"(,"number":)" +
           std::to_string(number) + R"(,"kind":")" + kKindNames[static_cast<int>(kind)] +
           R"(","mode":")" + std::string(toRawValue(mode)) + "\"}\n";
}

std::string intentLine(const JournalEntry& entry) {
    std::string line = R"({"intent":)" + recordText(entry.sacrifice) + R"(,"folder":)" +
                       (entry.isFolder ? "true" : "false") + R"(,"inode":)" +
                       std::to_string(entry.inode);
    for (const auto& [key, path] :
         {std::pair("destination", &entry.destination), {"volume", &entry.volume}})
        if (*path)
            line +=
                ",\"" + std::string(key) + "\":" + Json(pathToJsonText((*path)->native())).dump();
    if (!entry.fileSystem.empty())
        line += ",\"fileSystem\":" + Json(entry.fileSystem).dump();
    return line + "}\n";
}

std::string begunLine(const Uuid& id) {
    return outcomeLine("begun", id);
}

std::string doneLine(const Uuid& id) {
    return outcomeLine("done", id);
}

std::string failedLine(const Uuid& id, const std::string& failure) {
    return jsonText(Json{{"failed", id.toString()}, {"why", failure}}) + "\n";
}

Result<void> readLines(std::string_view lines, std::vector<JournalBatch>& batches) {
    Gatherer gatherer(batches);
    for (;;) {
        const auto end = lines.find('\n');
        if (end == std::string_view::npos)
            return {};
        int failed = EBADMSG;
        try {
            failed = gatherer.take(Json::parse(lines.substr(0, end)));
        } catch (const Json::exception&) {
            failed = EBADMSG;
        }
        if (failed != 0)
            return Error::fromErrno(failed, "read", {});
        lines.remove_prefix(end + 1);
    }
}

} // namespace vexmoor
