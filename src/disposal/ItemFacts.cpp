#include "ItemFacts.h"

#include <nlohmann/json.hpp>

#include <sys/stat.h>

#include <cmath>

namespace vexmoor {

namespace {

using Json = nlohmann::ordered_json;

constexpr double kZoneStepSeconds = 15 * 60;    // time zones differ by multiples of 15 minutes
constexpr double kFarthestZones = 26 * 60 * 60; // from UTC-12 to UTC+14
constexpr std::int64_t kPerSecond = 1000000000;

template <typename Number>
Number numberIn(const Json& json, const char* key, Number otherwise) {
    const auto found = json.find(key);
    return found != json.end() && found->is_number_integer() ? found->get<Number>() : otherwise;
}

/// FAT stores local time, so its timestamps shift with the time zone.
bool isSameBirth(std::int64_t one, std::int64_t other) {
    std::int64_t shift = 0;
    return one == other ||
           (!__builtin_sub_overflow(one, other, &shift) && shift % kPerSecond == 0 &&
            isZoneShift(static_cast<double>(shift / kPerSecond)));
}

} // namespace

bool isZoneShift(double seconds) {
    return std::abs(seconds) <= kFarthestZones && std::fmod(seconds, kZoneStepSeconds) == 0;
}

ItemFacts ItemFacts::of(const FileStatus& status, bool hasStableInode) {
    ItemFacts facts;
    facts.kind = status.mode & S_IFMT;
    facts.size = status.isFolder() ? -1 : status.size;
    facts.birthNanoseconds = status.birthNanoseconds;
    facts.inode = hasStableInode ? status.identity.inode : 0;
    return facts;
}

bool ItemFacts::fit(const FileStatus& status) const {
    if (kind == 0 || kind != (status.mode & S_IFMT))
        return false;
    if (size >= 0 && size != status.size)
        return false;
    if (birthNanoseconds != 0 && status.birthNanoseconds != 0)
        return isSameBirth(birthNanoseconds, status.birthNanoseconds);
    return inode != 0 && inode == status.identity.inode;
}

Json toJson(const ItemFacts& facts) {
    Json json = {{"kind", facts.kind}};
    if (facts.size >= 0)
        json["size"] = facts.size;
    if (facts.birthNanoseconds != 0)
        json["birth"] = facts.birthNanoseconds;
    if (facts.inode != 0)
        json["inode"] = facts.inode;
    if (!facts.volume.empty())
        json["volume"] = facts.volume;
    return json;
}

ItemFacts factsFromJson(const Json& json) {
    ItemFacts facts;
    if (!json.is_object())
        return facts;
    facts.kind = numberIn(json, "kind", facts.kind);
    facts.size = numberIn(json, "size", facts.size);
    facts.birthNanoseconds = numberIn(json, "birth", facts.birthNanoseconds);
    facts.inode = numberIn(json, "inode", facts.inode);
    if (const auto found = json.find("volume"); found != json.end() && found->is_string())
        facts.volume = found->get<std::string>();
    return facts;
}

} // namespace vexmoor
