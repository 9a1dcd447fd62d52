#include "platform/MountTable.h"

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace vexmoor {

namespace {

std::string readWhole(int descriptor) {
    std::string text;
    char buffer[8192];
    ::lseek(descriptor, 0, SEEK_SET);
    for (ssize_t count = 0; (count = ::read(descriptor, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    return text;
}

/// Decodes proc(5)'s octal escapes of white space and backslashes.
std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 3 < text.size()) {
            result += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 +
                                        (text[i + 3] - '0'));
            i += 3;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string_view nextWord(std::string_view& line) {
    const auto end = std::min(line.find(' '), line.size());
    const auto word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

/// Parses a line of mountinfo; see proc(5).
MountTable::Mount mountFrom(std::string_view line) {
    MountTable::Mount mount;
    mount.id = std::strtoull(std::string(nextWord(line)).c_str(), nullptr, 10);
    nextWord(line); // parent
    mount.device = nextWord(line);
    mount.root = unescaped(nextWord(line));
    mount.point = unescaped(nextWord(line));
    while (!line.empty() && nextWord(line) != "-") { // options, and a variable number of fields
    }
    mount.type = nextWord(line);
    return mount;
}

} // namespace

std::optional<MountTable::Mount> MountTable::mount(std::uint64_t mountId) {
    refresh();
    const auto found = std::ranges::find(m_mounts, mountId, &Mount::id);
    return found == m_mounts.end() ? std::nullopt : std::optional(*found);
}

std::vector<MountTable::Mount> MountTable::mountsOfSame(const Mount& mount) {
    refresh();
    std::vector<Mount> mounts;
    std::ranges::copy_if(m_mounts, std::back_inserter(mounts),
                         [&](const Mount& other) { return other.device == mount.device; });
    return mounts;
}

std::vector<MountTable::Mount> MountTable::all() {
    refresh();
    return m_mounts;
}

bool MountTable::isUnknown() {
    refresh();
    return m_mounts.empty();
}

std::optional<Path> MountTable::mountPoint(std::uint64_t mountId) {
    const auto found = mount(mountId);
    return found ? std::optional<Path>(found->point) : std::nullopt;
}

std::optional<Path> MountTable::mountBelow(const Path& folder) {
    refresh();
    const std::string prefix = folder == "/" ? folder.native() : folder.native() + "/";
    for (const auto& mount : m_mounts)
        if (mount.point.native().size() > prefix.size() && mount.point.native().starts_with(prefix))
            return mount.point;
    return std::nullopt;
}

void MountTable::refresh() {
    if (!m_source) {
        m_source = FileDescriptor(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
        if (!m_source)
            return;
    } else {
        pollfd change{m_source.get(), POLLPRI, 0};
        if (::poll(&change, 1, 0) == 0)
            return;
    }
    m_mounts.clear();
    const std::string text = readWhole(m_source.get());
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        const auto line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        m_mounts.push_back(mountFrom(line));
    }
}

} // namespace vexmoor
