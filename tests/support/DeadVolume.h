#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <string>

namespace vexmoor::test {

/// A mounted volume whose server never answers, so that each access hangs; after end() each access
/// fails with ENOTCONN. Visible only to the calling thread and the threads it starts.
class DeadVolume {
  public:
    explicit DeadVolume(Path folder)
        : m_folder(std::move(folder)), m_device(::open("/dev/fuse", O_RDWR | O_CLOEXEC)) {}
    ~DeadVolume() { ::umount2(m_folder.c_str(), MNT_DETACH); }
    DeadVolume(const DeadVolume&) = delete;
    DeadVolume& operator=(const DeadVolume&) = delete;

    /// Mounts the volume. Returns false without root privileges.
    [[nodiscard]] bool mount() const {
        const auto options = "fd=" + std::to_string(m_device.get()) +
                             ",rootmode=40000,user_id=0,group_id=0,allow_other";
        return m_device && ::unshare(CLONE_NEWNS) == 0 &&
               ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("dead", m_folder.c_str(), "fuse", MS_NOSUID | MS_NODEV, options.c_str()) ==
                   0;
    }
    void end() { (void)m_device.close(); }

  private:
    Path m_folder;
    FileDescriptor m_device;
};

} // namespace vexmoor::test
