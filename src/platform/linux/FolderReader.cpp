#include "platform/FolderReader.h"

#include <dirent.h>

#include <cerrno>

namespace vexmoor {

namespace {

bool isDots(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

FolderReader::FolderReader() : m_buffer(std::make_unique_for_overwrite<char[]>(kMostBytes)) {}

Result<std::size_t> FolderReader::read(int folder, std::size_t bytes) {
    m_size = m_next = 0;
    ssize_t size = ::getdents64(folder, m_buffer.get(), bytes);
    if (size < 0 && errno == EINVAL && bytes < kMostBytes)
        size = ::getdents64(folder, m_buffer.get(), kMostBytes);
    if (size < 0)
        return Error::fromErrno(errno, "read");
    m_size = static_cast<std::size_t>(size);
    return m_size;
}

const FolderEntry* FolderReader::next() {
    while (m_next < m_size) {
        const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + m_next);
        m_next += entry->d_reclen;
        m_position = entry->d_off;
        if (isDots(entry->d_name))
            continue;
        m_entry = {entry->d_name, entry->d_type == DT_DIR};
        return &m_entry;
    }
    return nullptr;
}

} // namespace vexmoor
