#include "ShmBuffers.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace vexmoor::wayland {
namespace {

constexpr std::size_t kMost = 3; ///< one shown, one pending, one to draw into
constexpr int kBytesPerPixel = 4;

} // namespace

struct ShmBuffers::Buffer {
    ShmBuffers* owner;
    void* memory;
    std::size_t length;
    Owned<wl_buffer> buffer;
    bool isShown = false;
};

void ShmBuffers::Deleter::operator()(Buffer* buffer) const {
    munmap(buffer->memory, buffer->length);
    delete buffer;
}

ShmBuffers::BufferPointer ShmBuffers::make(QSize size) {
    const int stride = size.width() * kBytesPerPixel;
    const int length = stride * size.height();
    const int file = memfd_create("vexmoor-tile", MFD_CLOEXEC);
    if (file < 0)
        return nullptr;
    void* memory = MAP_FAILED;
    if (ftruncate(file, length) == 0)
        memory = mmap(nullptr, static_cast<std::size_t>(length), PROT_READ | PROT_WRITE, MAP_SHARED,
                      file, 0);
    if (memory == MAP_FAILED) {
        close(file);
        return nullptr;
    }
    wl_shm_pool* const pool = wl_shm_create_pool(m_shm, file, length);
    Owned<wl_buffer> buffer(wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(), stride,
                                                      WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool);
    close(file);
    BufferPointer made(
        new Buffer{this, memory, static_cast<std::size_t>(length), std::move(buffer)});
    static const wl_buffer_listener kListener{.release = [](void* data, wl_buffer*) {
        auto* const unused = static_cast<Buffer*>(data);
        unused->isShown = false;
        if (std::exchange(unused->owner->m_isWaiting, false) && unused->owner->released)
            unused->owner->released();
    }};
    wl_buffer_add_listener(made->buffer.get(), &kListener, made.get());
    return made;
}

wl_buffer* ShmBuffers::show(const QImage& image) {
    if (image.size() != m_size)
        m_buffers.clear();
    m_size = image.size();
    auto free = std::ranges::find(m_buffers, false, [](const auto& one) { return one->isShown; });
    if (free == m_buffers.end()) {
        auto made = m_buffers.size() < kMost ? make(m_size) : nullptr;
        m_isWaiting = !made;
        if (!made)
            return nullptr;
        free = m_buffers.insert(m_buffers.end(), std::move(made));
    }
    Buffer& buffer = **free;
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    std::memcpy(buffer.memory, pixels.constBits(),
                std::min(buffer.length, static_cast<std::size_t>(pixels.sizeInBytes())));
    buffer.isShown = true;
    return buffer.buffer.get();
}

} // namespace vexmoor::wayland
