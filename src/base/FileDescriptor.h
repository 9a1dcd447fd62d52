#pragma once

#include <unistd.h>

#include <utility>

namespace vexmoor {

/// Owns a file descriptor and closes it on destruction. -1 means none.
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor() { reset(); }

    [[nodiscard]] int get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

    void reset() {
        if (m_descriptor >= 0)
            ::close(std::exchange(m_descriptor, -1));
    }

    /// Closes the descriptor. Returns false and sets errno if a delayed write failed.
    bool close() { return ::close(std::exchange(m_descriptor, -1)) == 0; }

  private:
    int m_descriptor = -1;
};

} // namespace vexmoor
