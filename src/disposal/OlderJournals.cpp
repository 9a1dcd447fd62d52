#include "OlderJournals.h"

#include "base/Text.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace vexmoor {

Path OlderJournals::fileOf(std::int64_t number, std::string_view ending) const {
    return m_folder / (std::to_string(number) + std::string(ending));
}

OlderJournals::OlderJournals(Path folder) : m_folder(std::move(folder)) {
    std::error_code code;
    for (std::filesystem::directory_iterator entry(m_folder, code), end; !code && entry != end;
         entry.increment(code)) {
        const std::string name = entry->path().filename();
        std::int64_t number = 0;
        const auto [rest, parsed] = std::from_chars(name.data(), name.data() + name.size(), number);
        if (parsed == std::errc() && std::string_view(rest) == kOpenEnding)
            m_open.push_back(number);
        if (parsed == std::errc() && std::string_view(rest) == kClosedEnding)
            m_closed.push_back(number);
    }
    std::ranges::sort(m_open);
    std::ranges::sort(m_closed);
}

Result<JournalBatch> OlderJournals::read(std::int64_t number) const {
    Path file = fileOf(number, kOpenEnding);
    std::error_code code;
    if (std::filesystem::is_directory(file, code))
        return Error::fromErrno(EISDIR, "read", file);
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        file = fileOf(number, kClosedEnding);
        stream.open(file, std::ios::binary);
    }
    if (!stream)
        return Error::fromErrno(errno, "read", file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad())
        return Error::fromErrno(EIO, "read", file);
    std::vector<JournalBatch> batches;
    if (auto read = readLines(text, batches); !read)
        return Error{read.error().code,
                     read.error().code == std::errc::not_supported
                         ? marked("read the newer format of")
                         : marked("read"),
                     file};
    if (batches.empty())
        batches.emplace_back(); // interrupted in its first line: the batch did not start
    batches.front().number = number;
    return std::move(batches.front());
}

Result<Path> OlderJournals::setAside(std::int64_t number) {
    const Path file = fileOf(number, kOpenEnding);
    Path aside = fileOf(number, ".damaged");
    if (::rename(file.c_str(), aside.c_str()) != 0)
        return Error::fromErrno(errno, "set aside", file);
    return aside;
}

Result<void> OlderJournals::removeOpen(std::int64_t number) {
    const Path file = fileOf(number, kOpenEnding);
    if (::unlink(file.c_str()) != 0 && errno != ENOENT)
        return Error::fromErrno(errno, "close", file);
    return {};
}

void OlderJournals::removeClosed(std::int64_t number) {
    ::unlink(fileOf(number, kClosedEnding).c_str());
}

} // namespace vexmoor
