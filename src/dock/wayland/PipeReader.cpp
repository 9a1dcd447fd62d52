#include "PipeReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>

namespace vexmoor::wayland {
namespace {

using namespace std::chrono_literals;

constexpr auto kTimeout = 10s; ///< maximum time without new bytes
constexpr qsizetype kMost = qsizetype{256} << 20;

} // namespace

PipeReader::PipeReader(int file) : m_file(file), m_notifier(file, QSocketNotifier::Read) {
    fcntl(file, F_SETFL, fcntl(file, F_GETFL) | O_NONBLOCK);
    connect(&m_notifier, &QSocketNotifier::activated, this, &PipeReader::read);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish(false); });
    m_timeout.start(kTimeout);
}

PipeReader::~PipeReader() {
    m_notifier.setEnabled(false);
    close(m_file);
}

void PipeReader::read() {
    std::array<char, 65536> piece{};
    const ssize_t count = ::read(m_file, piece.data(), piece.size());
    if (count > 0) {
        m_bytes.append(piece.data(), count);
        m_timeout.start();
        if (m_bytes.size() > kMost)
            finish(false);
    } else if (count == 0) {
        finish(true);
    } else if (errno != EAGAIN && errno != EINTR) {
        finish(false);
    }
}

void PipeReader::finish(bool isWhole) {
    m_notifier.setEnabled(false);
    m_timeout.stop();
    emit finished(isWhole ? std::optional(m_bytes) : std::nullopt);
}

} // namespace vexmoor::wayland
