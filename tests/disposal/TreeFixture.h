#pragma once

#include "base/Path.h"
#include "platform/FileManager.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <set>
#include <string>
#include <system_error>

namespace vexmoor {

inline void PrintTo(const Error& error, std::ostream* out) {
    *out << error.operation << ' ' << error.path << ": " << error.message();
}

} // namespace vexmoor

namespace vexmoor::test {

/// A test folder that is open as directory(). Tests create and remove only inside it.
class TreeTest : public testing::Test {
  protected:
    TreeTest() {
        std::string path = (parentFolder() / "vexmoor-tree-XXXXXX").string();
        EXPECT_NE(mkdtemp(path.data()), nullptr);
        m_path = path;
        EXPECT_EQ(chmod(path.c_str(), 0755), 0);
        openDirectory();
    }
    ~TreeTest() override {
        std::error_code ignored; // a failed test may leave protected files
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const Path& path() const { return m_path; }
    [[nodiscard]] int directory() const { return m_directory.get(); }

    void makeFile(const Path& name, std::size_t bytes = 10) const {
        std::ofstream file(m_path / name);
        file << std::string(bytes, 'x');
        EXPECT_TRUE(file.good()) << name;
    }
    void makeFolder(const Path& name) const { std::filesystem::create_directories(m_path / name); }
    void makeFolders(const Path& name, int folders, int files) const {
        for (int folder = 0; folder < folders; ++folder) {
            const Path inner = name / ("folder " + std::to_string(folder));
            makeFolder(inner);
            for (int file = 0; file < files; ++file)
                makeFile(inner / std::to_string(file));
        }
    }
    /// Faster, for large numbers.
    void makeEmptyFiles(const Path& name, int files) const {
        makeFolder(name);
        for (int file = 0; file < files; ++file) {
            const Path path = m_path / name / ("file " + std::to_string(file));
            FileDescriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
        }
    }
    /// Returns the deepest folder's descriptor.
    FileDescriptor makeChain(const std::string& name, int depth) const {
        FileDescriptor at(::openat(directory(), ".", O_PATH | O_CLOEXEC));
        for (int level = 0; level < depth; ++level) {
            const char* next = level == 0 ? name.c_str() : "d";
            EXPECT_EQ(mkdirat(at.get(), next, 0755), 0);
            at = FileDescriptor(::openat(at.get(), next, O_PATH | O_CLOEXEC));
        }
        return at;
    }
    [[nodiscard]] bool exists(const Path& name) const { return fileStatus(m_path / name).ok(); }
    /// Returns all paths below, for comparison.
    [[nodiscard]] std::set<Path> contents(const Path& name = {}) const {
        std::set<Path> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_path / name))
            paths.insert(entry.path().lexically_relative(m_path));
        return paths;
    }

    /// Runs the body in a child process, which may change its rights, limits and mounts. Failures
    /// and skips of the child apply to this test.
    template <typename Body>
    static void inProcess(Body body) {
        std::fflush(nullptr);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            body();
            std::fflush(nullptr);
            _exit(HasFailure() ? 1 : IsSkipped() ? kSkipped : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
        if (WEXITSTATUS(status) == kSkipped)
            GTEST_SKIP() << "see above";
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }

    static constexpr uid_t kNobody = 65534;
    /// Drops root privileges, if any. Only within inProcess().
    static void dropRights() {
        if (geteuid() == 0) {
            ASSERT_EQ(setresgid(kNobody, kNobody, kNobody), 0);
            ASSERT_EQ(setresuid(kNobody, kNobody, kNobody), 0);
        }
    }
    /// Makes mounts private. Only within inProcess().
    void useOwnMounts() {
        if (unshare(CLONE_NEWNS) != 0)
            GTEST_SKIP() << "mounting is not allowed here";
        ASSERT_EQ(mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
        openDirectory(); // the previous descriptor refers to the previous mounts
    }
    void mountMemory(const Path& at) const {
        ASSERT_EQ(mount("tmpfs", (m_path / at).c_str(), "tmpfs", 0, ""), 0);
    }
    void bind(const Path& what, const Path& at) const {
        ASSERT_EQ(mount((m_path / what).c_str(), (m_path / at).c_str(), nullptr, MS_BIND, nullptr),
                  0);
    }
    /// Changes the owner to the user that dropRights() switches to.
    void giveToNobody(const Path& name = {}) const {
        if (geteuid() == 0) {
            ASSERT_EQ(lchown((m_path / name).c_str(), kNobody, kNobody), 0);
        }
    }

  private:
    static constexpr int kSkipped = 77;

    /// Returns a folder in memory if available, because tests remove many files.
    static Path parentFolder() {
        const bool isMemoryWritable = access("/dev/shm", R_OK | W_OK | X_OK) == 0;
        return getenv("TEST_TMPDIR") || !isMemoryWritable ? testing::TempDir() : "/dev/shm";
    }
    void openDirectory() {
        auto opened = openFolder(m_path);
        EXPECT_TRUE(opened.ok());
        m_directory = std::move(opened).value();
    }

    Path m_path;
    FileDescriptor m_directory;
};

} // namespace vexmoor::test
