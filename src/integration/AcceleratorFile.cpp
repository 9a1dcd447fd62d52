#include "AcceleratorFile.h"

#include "integration/WholeFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vexmoor {

namespace {

constexpr mode_t kFileMode = 0644;

bool isMissing(const Error& error) {
    return error.code == std::errc::no_such_file_or_directory;
}

} // namespace

AcceleratorFile::AcceleratorFile(Path file, std::unique_ptr<AcceleratorText> text,
                                 bool needsRestart)
    : m_needsRestart(needsRestart) {
    m_parts.push_back({std::move(file), std::move(text)});
}

void AcceleratorFile::alsoNeeds(Path file, std::unique_ptr<AcceleratorText> text) {
    m_parts.insert(m_parts.begin(), Part{std::move(file), std::move(text)});
}

Result<AcceleratorStatus> AcceleratorFile::status() const {
    AcceleratorStatus all = AcceleratorStatus::installed;
    for (const auto& part : m_parts) {
        const auto text = read(part);
        if (!text)
            return text.error();
        const auto status = *part.text->status(*text);
        if (status != AcceleratorStatus::installed)
            all = status;
    }
    return all;
}

Result<void> AcceleratorFile::install(CreatedPaths& created) const {
    const auto before = status();
    if (!before)
        return before.error();
    if (*before != AcceleratorStatus::notInstalled)
        return {};
    for (const auto& part : m_parts)
        if (auto done = installIn(part, created); !done)
            return done;
    return {};
}

Result<void> AcceleratorFile::remove(CreatedPaths& created) const {
    for (const auto& part : m_parts)
        if (auto done = removeFrom(part, created); !done)
            return done;
    return {};
}

AcceleratorValidity AcceleratorFile::validity() const {
    using std::chrono::duration_cast;
    struct stat found {};
    if (::stat(file().c_str(), &found) != 0)
        return {std::nullopt, m_needsRestart};
    const auto time = std::chrono::seconds(found.st_mtim.tv_sec) +
                      std::chrono::nanoseconds(found.st_mtim.tv_nsec);
    return {ProcessTime(duration_cast<ProcessTime::duration>(time)), m_needsRestart};
}

/// Returns the blank text if the file is missing.
Result<std::string> AcceleratorFile::read(const Part& part) {
    auto text = readWholeFile(part.file);
    std::error_code code;
    if (!text)
        return isMissing(text.error()) && !std::filesystem::is_symlink(part.file, code)
                   ? Result(part.text->blank())
                   : text;
    if (text->empty())
        text = part.text->blank();
    if (!part.text->status(*text))
        return Error::fromErrno(EBADMSG, "not understood, left as it is:", part.file);
    return text;
}

Result<void> AcceleratorFile::installIn(const Part& part, CreatedPaths& created) {
    const auto text = read(part);
    if (!text)
        return text.error();
    if (*part.text->status(*text) != AcceleratorStatus::notInstalled)
        return {};
    if (auto made = created.makeFolders(part.file.parent_path()); !made)
        return made;
    struct stat found {};
    const bool isNew = ::stat(part.file.c_str(), &found) != 0;
    auto written = replaceWholeFile(part.file, part.text->with(*text), kFileMode);
    if (written && isNew)
        created.add(part.file);
    return written;
}

Result<void> AcceleratorFile::removeFrom(const Part& part, CreatedPaths& created) {
    const auto text = read(part);
    if (!text)
        return text.error();
    const auto rest = part.text->without(*text);
    if (rest == *text)
        return {};
    const bool isBlank = rest == part.text->blank();
    const bool isOurs = created.contains(part.file);
    created.forget(part.file);
    if (isBlank && isOurs) {
        if (::unlink(part.file.c_str()) != 0)
            return Error::fromErrno(errno, "remove", part.file);
        return {};
    }
    return replaceWholeFile(part.file, rest, kFileMode);
}

} // namespace vexmoor
