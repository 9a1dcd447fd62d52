#include "platform/FolderReader.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>

namespace vexmoor {

namespace {

bool isDots(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

Result<std::size_t> FolderReader::read(int folder, std::size_t bytes) {
    m_order.clear();
    m_next = 0;
    if (m_capacity < std::max(bytes, kUsualBytes)) {
        m_capacity = std::max(bytes, kUsualBytes);
        m_buffer = std::make_unique_for_overwrite<char[]>(m_capacity);
    }
    ssize_t size = ::getdents64(folder, m_buffer.get(), bytes);
    if (size < 0 && errno == EINVAL && bytes < kUsualBytes)
        size = ::getdents64(folder, m_buffer.get(), kUsualBytes);
    if (size < 0)
        return Error::fromErrno(errno, "read");
    takeOrder(static_cast<std::size_t>(size));
    return static_cast<std::size_t>(size);
}

void FolderReader::takeOrder(std::size_t size) {
    for (std::size_t at = 0; at < size;) {
        const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + at);
        if (!isDots(entry->d_name))
            m_order.emplace_back(entry->d_ino, at);
        at += entry->d_reclen;
        m_position = entry->d_off;
    }
    std::ranges::sort(m_order);
}

const FolderEntry* FolderReader::next() {
    if (m_next == m_order.size())
        return nullptr;
    m_entry = entryAt(m_order[m_next++].second);
    return &m_entry;
}

FolderEntry FolderReader::entryAt(std::size_t place) const {
    const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + place);
    return {entry->d_name, entry->d_type == DT_DIR};
}

std::string FolderReader::takeSecondHalf() {
    std::string names;
    auto kept = m_order.begin() + static_cast<std::ptrdiff_t>(m_order.size() - left() / 2);
    for (auto at = kept; at != m_order.end(); ++at) {
        const auto entry = entryAt(at->second);
        if (entry.isFolder)
            *kept++ = *at;
        else
            names.append(entry.name).push_back('\0');
    }
    m_order.erase(kept, m_order.end());
    return names;
}

} // namespace vexmoor
