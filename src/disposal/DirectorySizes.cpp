#include "DirectorySizes.h"

#include "base/FileDescriptor.h"
#include "base/Path.h"
#include "platform/FileManager.h"

#include <fcntl.h>

#include <charconv>
#include <cstdio>
#include <string_view>

namespace vexmoor {

namespace {

constexpr const char* kFileName = "directorysizes";
constexpr std::size_t kLongestFile = std::size_t{32} * 1024 * 1024;

std::optional<std::int64_t> takeNumber(std::string_view& line) {
    std::int64_t number = 0;
    const auto [end, code] = std::from_chars(line.data(), line.data() + line.size(), number);
    if (code != std::errc() || end == line.data() + line.size() || *end != ' ')
        return std::nullopt;
    line.remove_prefix(static_cast<std::size_t>(end - line.data()) + 1);
    return number;
}

bool writeFile(int folder, const char* name, const std::string& text) {
    FileDescriptor file(
        ::openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
    return file && ::write(file.get(), text.data(), text.size()) == ssize_t(text.size()) &&
           file.close();
}

} // namespace

std::map<std::string, DirectorySizes::Entry> DirectorySizes::parse(const std::string& text) {
    std::map<std::string, Entry> entries;
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        auto line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const auto bytes = takeNumber(line);
        const auto modified = bytes ? takeNumber(line) : std::nullopt;
        auto name = modified ? percentDecoded(line) : std::nullopt;
        const bool isFolderInBin = name && !name->empty() && name->find('/') == std::string::npos;
        if (isFolderInBin && *bytes >= 0)
            entries[*std::move(name)] = {*bytes, *modified};
    }
    return entries;
}

void DirectorySizes::flush(int binFolder) {
    if (m_changes.empty())
        return;
    const auto text = readRegularFile(binFolder, kFileName, kLongestFile);
    auto entries = parse(text ? *text : std::string());
    const auto before = entries;
    for (const auto& [name, change] : m_changes) {
        if (change)
            entries[name] = *change;
        else
            entries.erase(name);
    }
    m_changes.clear();
    if (entries == before)
        return;
    std::string lines;
    for (const auto& [name, entry] : entries)
        lines += std::to_string(entry.bytes) + " " + std::to_string(entry.infoModifiedSeconds) +
                 " " + percentEncoded(name) + "\n";
    const std::string temporary = "directorysizes." + std::to_string(::getpid());
    ::unlinkat(binFolder, temporary.c_str(), 0); // left by a dead process with the same process id
    if (!writeFile(binFolder, temporary.c_str(), lines) ||
        ::renameat(binFolder, temporary.c_str(), binFolder, kFileName) != 0)
        ::unlinkat(binFolder, temporary.c_str(), 0);
}

} // namespace vexmoor
