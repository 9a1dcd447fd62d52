#include "JournalFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <optional>

namespace vexmoor {

namespace {

constexpr std::string_view kMark = "block ";
constexpr std::string_view kEnd = "end\n";
constexpr std::size_t kHeader = 6 + 4 * 17; ///< the keyword and four numbers
constexpr std::int64_t kKeptRoom = 1024 * 1024;
constexpr std::int64_t kLongest = std::int64_t{1} << 30;

/// Detects blocks that a power cut has torn. Processes eight bytes at a time.
std::uint64_t checksum(std::uint64_t seed, std::string_view text) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    std::uint64_t sum = seed ^ (text.size() * kFactor);
    while (!text.empty()) {
        std::uint64_t word = 0;
        const auto count = std::min(text.size(), sizeof word);
        std::memcpy(&word, text.data(), count);
        text.remove_prefix(count);
        sum = std::rotl((sum ^ word) * kFactor, 31);
    }
    return sum ^ (sum >> 32);
}

/// Formats 16 hexadecimal digits.
std::string number(std::uint64_t value) {
    constexpr int kDigits = 16;
    char digits[kDigits];
    const auto end = std::to_chars(digits, digits + kDigits, value, 16).ptr;
    return std::string(kDigits - static_cast<std::size_t>(end - digits), '0') +
           std::string(digits, end);
}

struct Header {
    std::int64_t generation = 0;
    std::int64_t synced = 0;
    std::int64_t length = 0;
    std::uint64_t sum = 0;
};

std::uint64_t sumOf(const Header& header, std::int64_t offset, std::string_view text) {
    const auto seed = static_cast<std::uint64_t>(header.generation) * 31 +
                      static_cast<std::uint64_t>(header.synced) * 17 +
                      static_cast<std::uint64_t>(offset);
    return checksum(seed, text);
}

std::optional<Header> headerAt(std::string_view bytes) {
    if (bytes.size() < kHeader || !bytes.starts_with(kMark))
        return std::nullopt;
    std::uint64_t numbers[4];
    const char* place = bytes.data() + kMark.size();
    for (auto& value : numbers) {
        const auto [rest, code] = std::from_chars(place, place + 16, value, 16);
        if (code != std::errc() || rest != place + 16)
            return std::nullopt;
        place += 17;
    }
    const Header header{static_cast<std::int64_t>(numbers[0]),
                        static_cast<std::int64_t>(numbers[1]),
                        static_cast<std::int64_t>(numbers[2]), numbers[3]};
    return header.generation > 0 && header.length >= 0 && header.length <= kLongest
               ? std::optional(header)
               : std::nullopt;
}

/// Returns the header of a valid block at the offset.
std::optional<Header> blockAt(std::string_view bytes, std::int64_t offset,
                              std::int64_t generation) {
    const auto header = headerAt(bytes);
    if (!header || header->generation != generation ||
        bytes.size() - kHeader < static_cast<std::size_t>(header->length))
        return std::nullopt;
    const auto text = bytes.substr(kHeader, static_cast<std::size_t>(header->length));
    return sumOf(*header, offset, text) == header->sum ? header : std::nullopt;
}

bool cannotBeSynced(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

Result<void> syncFolder(const Path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor || (::fsync(descriptor.get()) != 0 && !cannotBeSynced(errno)))
        return Error::fromErrno(errno, "write", folder);
    return {};
}

} // namespace

Result<JournalFile> JournalFile::open(const Path& path) {
    FileDescriptor descriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!descriptor) {
        const bool isNoFile = errno == EISDIR || errno == ELOOP || errno == ENXIO;
        return Error::fromErrno(isNoFile ? EBADMSG : errno, "read", path);
    }
    struct stat status {};
    if (::fstat(descriptor.get(), &status) != 0)
        return Error::fromErrno(errno, "read", path);
    if (!S_ISREG(status.st_mode))
        return Error::fromErrno(EBADMSG, "read", path);
    return JournalFile(path, std::move(descriptor));
}

Result<JournalFile> JournalFile::make(const Path& path) {
    FileDescriptor descriptor(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!descriptor)
        return Error::fromErrno(errno, "write", path);
    JournalFile file(path, std::move(descriptor));
    auto made = file.writeAll(std::string(static_cast<std::size_t>(kReserve), '\0'), 0);
    if (made && ::fsync(file.m_descriptor.get()) != 0 && !cannotBeSynced(errno))
        made = Error::fromErrno(errno, "write", path);
    for (const auto& folder : {path.parent_path(), path.parent_path().parent_path()})
        if (made)
            made = syncFolder(folder);
    if (made)
        return file;
    ::unlink(path.c_str());
    return std::move(made).error();
}

std::int64_t JournalFile::generation() const {
    char bytes[kHeader];
    const auto count = ::pread(m_descriptor.get(), bytes, kHeader, 0);
    const auto header =
        headerAt({bytes, count > 0 ? static_cast<std::size_t>(count) : std::size_t{0}});
    return header ? header->generation : 0;
}

bool JournalFile::endsAt(JournalPosition position) const {
    char bytes[kEnd.size()];
    return generation() == position.generation &&
           ::pread(m_descriptor.get(), bytes, kEnd.size(), position.offset) ==
               static_cast<ssize_t>(kEnd.size()) &&
           std::string_view(bytes, kEnd.size()) == kEnd;
}

Result<std::string> JournalFile::bytesFrom(std::int64_t offset) const {
    struct stat status {};
    if (::fstat(m_descriptor.get(), &status) != 0)
        return Error::fromErrno(errno, "read", m_path);
    std::string bytes(
        static_cast<std::size_t>(std::clamp<std::int64_t>(status.st_size - offset, 0, kLongest)),
        '\0');
    std::size_t count = 0;
    while (count < bytes.size()) {
        const auto read = ::pread(m_descriptor.get(), bytes.data() + count, bytes.size() - count,
                                  offset + static_cast<std::int64_t>(count));
        if (read < 0 && errno == EINTR)
            continue;
        if (read < 0)
            return Error::fromErrno(errno, "read", m_path);
        if (read == 0)
            break;
        count += static_cast<std::size_t>(read);
    }
    bytes.resize(count);
    return bytes;
}

/// After an unreadable block, searches for a later block that was written after this one was
/// synced: then the file is damaged. Otherwise the block was being written during the crash, and
/// none of its intents was carried out.
Result<JournalFile::Contents> JournalFile::read(JournalPosition from) const {
    const auto bytes = bytesFrom(from.offset);
    if (!bytes)
        return bytes.error();
    const std::string mark =
        std::string(kMark) + number(static_cast<std::uint64_t>(from.generation));
    Contents contents;
    contents.end = from.offset;
    std::size_t place = 0;
    std::int64_t unread = -1; ///< start of the unreadable part
    while (place < bytes->size()) {
        const auto rest = std::string_view(*bytes).substr(place);
        const auto offset = from.offset + static_cast<std::int64_t>(place);
        if (const auto header = blockAt(rest, offset, from.generation);
            header && (unread < 0 || header->synced > unread)) {
            contents.isDamaged = contents.isDamaged || unread >= 0;
            unread = -1;
            const auto length = static_cast<std::size_t>(header->length);
            place += kHeader + length;
            contents.end = from.offset + static_cast<std::int64_t>(place);
            contents.blocks.push_back({std::string(rest.substr(kHeader, length)), contents.end});
            continue;
        }
        if (unread < 0 && rest.starts_with(kEnd))
            break;
        if (unread < 0)
            unread = offset;
        place = std::min(bytes->find(mark, place + 1), bytes->size());
    }
    return contents;
}

Result<void> JournalFile::writeAll(const std::string& bytes, std::int64_t offset) {
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const auto written = ::pwrite(m_descriptor.get(), rest.data(), rest.size(), offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return Error::fromErrno(written == 0 ? ENOSPC : errno, "write", m_path);
        rest.remove_prefix(static_cast<std::size_t>(written));
        offset += written;
    }
    return {};
}

Result<std::int64_t> JournalFile::write(JournalPosition at, std::int64_t synced,
                                        const std::string& text) {
    Header header{at.generation, synced, static_cast<std::int64_t>(text.size()), 0};
    header.sum = sumOf(header, at.offset, text);
    std::string bytes(kMark);
    for (const auto value :
         {static_cast<std::uint64_t>(header.generation), static_cast<std::uint64_t>(header.synced),
          static_cast<std::uint64_t>(header.length)})
        bytes += number(value) + " ";
    bytes += number(header.sum) + "\n" + text;
    const auto end = at.offset + static_cast<std::int64_t>(bytes.size());
    bytes += kEnd; // overwritten by the next block
    if (auto written = writeAll(bytes, at.offset); !written)
        return std::move(written).error();
    return end;
}

Result<void> JournalFile::sync() {
    if (::fdatasync(m_descriptor.get()) != 0 && !cannotBeSynced(errno))
        return Error::fromErrno(errno, "write", m_path);
    return {};
}

void JournalFile::shrink() {
    struct stat status {};
    if (::fstat(m_descriptor.get(), &status) == 0 && status.st_size > kKeptRoom)
        (void)!::ftruncate(m_descriptor.get(), kReserve);
}

} // namespace vexmoor
