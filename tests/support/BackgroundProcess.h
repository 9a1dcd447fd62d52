#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace vexmoor::test {

/// A program that runs beside the test, in its environment, and is ended with this.
class BackgroundProcess {
  public:
    /// `keepOpen`: a descriptor that the program shall have too; -1 for none. Throws where it
    /// cannot be started.
    explicit BackgroundProcess(const std::vector<std::string>& words, int keepOpen = -1);
    ~BackgroundProcess();
    BackgroundProcess(const BackgroundProcess&) = delete;
    BackgroundProcess& operator=(const BackgroundProcess&) = delete;

  private:
    pid_t m_process;
};

} // namespace vexmoor::test
