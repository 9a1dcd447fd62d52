#include "TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace vexmoor::test {

TemporaryDirectory::TemporaryDirectory() {
    // Canonical, so that it equals the paths that the kernel returns.
    std::string pattern =
        std::filesystem::canonical(std::filesystem::temp_directory_path()) / "vexmoor-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::filesystem::filesystem_error("mkdtemp", pattern,
                                                std::error_code(errno, std::generic_category()));
    m_path = pattern;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code code;
    std::filesystem::remove_all(m_path, code);
}

Path TemporaryDirectory::write(const Path& name, std::string_view bytes) const {
    const Path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream;
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream.open(file, std::ios::binary);
    stream.write(bytes.data(), std::ssize(bytes));
    return file;
}

std::string contents(const Path& file) {
    std::ifstream stream;
    stream.exceptions(std::ios::badbit);
    stream.open(file, std::ios::binary);
    if (!stream)
        throw std::filesystem::filesystem_error("read", file,
                                                std::error_code(errno, std::generic_category()));
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace vexmoor::test
