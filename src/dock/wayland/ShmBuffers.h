#pragma once

#include "WaylandObjects.h"

#include <QImage>

#include <functional>
#include <vector>

namespace vexmoor::wayland {

/// Memory shared with the compositor that pictures are drawn into: a few buffers of one size, each
/// the compositor's until it releases it. Main thread.
class ShmBuffers {
  public:
    explicit ShmBuffers(wl_shm* shm) : m_shm(shm) {}

    /// A buffer that shows the picture, the compositor's from now on; null while it has them all,
    /// or if there is no memory. `released` is called at the next release then.
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
