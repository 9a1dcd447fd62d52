#include "BackgroundProcess.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace vexmoor::test {
namespace {

[[noreturn]] void become(std::vector<char*> words, int keepOpen) {
    prctl(PR_SET_PDEATHSIG, SIGTERM); // a test that crashes leaves nothing behind
    if (keepOpen >= 0)
        fcntl(keepOpen, F_SETFD, 0);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execvp(words.front(), words.data());
    _exit(127);
}

} // namespace

BackgroundProcess::BackgroundProcess(const std::vector<std::string>& words, int keepOpen) {
    std::vector<char*> pointers;
    for (const std::string& word : words)
        pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    m_process = fork();
    if (m_process < 0)
        throw std::runtime_error("cannot start " + words.front());
    if (m_process == 0)
        become(std::move(pointers), keepOpen);
}

BackgroundProcess::~BackgroundProcess() {
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
}

} // namespace vexmoor::test
