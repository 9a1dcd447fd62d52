#pragma once

#include "WaylandObjects.h"

#include <QImage>

#include <functional>
#include <vector>

namespace vexmoor::wayland {

/// A few shared-memory buffers of one size. The compositor owns a buffer from show() until it
/// releases it. Main thread.
class ShmBuffers {
  public:
    explicit ShmBuffers(wl_shm* shm) : m_shm(shm) {}

    /// Copies the picture into a free buffer and passes it to the compositor. Returns null if no
    /// buffer is free or memory is exhausted; `released` is then called at the next release.
    wl_buffer* show(const QImage& image);
    std::function<void()> released;

  private:
    struct Buffer;
    struct Deleter {
        void operator()(Buffer* buffer) const;
    };
    using BufferPointer = std::unique_ptr<Buffer, Deleter>;

    [[nodiscard]] BufferPointer make(QSize size);

    wl_shm* m_shm;
    QSize m_size;
    std::vector<BufferPointer> m_buffers;
    bool m_isWaiting = false;
};

} // namespace vexmoor::wayland
