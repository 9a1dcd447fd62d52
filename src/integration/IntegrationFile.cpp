#include "IntegrationFile.h"

#include "integration/ThunarActions.h"
#include "integration/WholeFile.h"
#include "platform/FileManager.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vexmoor {

namespace {

constexpr mode_t kProgramMode = 0755;
constexpr mode_t kFileMode = 0644;

bool isMissing(const Error& error) {
    return error.code == std::errc::no_such_file_or_directory;
}

} // namespace

Result<IntegrationStatus> IntegrationFile::status() const {
    if (m_integration.kind == Integration::Kind::thunarAction)
        return sharedStatus();
    const auto found = fileStatus(m_integration.file);
    if (!found)
        return isMissing(found.error()) ? Result(IntegrationStatus::notInstalled)
                                        : Result<IntegrationStatus>(found.error());
    if (!S_ISREG(found->mode))
        return IntegrationStatus::notOurs;
    const auto text = readWholeFile(m_integration.file);
    if (!text)
        return text.error();
    if (text->find(kIntegrationMark) == std::string::npos)
        return IntegrationStatus::notOurs;
    const bool canRun = (found->mode & S_IXUSR) != 0;
    const bool mustRun = m_integration.kind == Integration::Kind::ownProgramFile;
    return *text == m_integration.content && (canRun || !mustRun) ? IntegrationStatus::installed
                                                                  : IntegrationStatus::differs;
}

Result<void> IntegrationFile::install(CreatedPaths& created) const {
    const auto before = status();
    if (!before)
        return before.error();
    if (*before == IntegrationStatus::installed)
        return {};
    if (*before == IntegrationStatus::notOurs)
        return notOurs();
    if (auto made = created.makeFolders(m_integration.file.parent_path()); !made)
        return made;
    if (m_integration.kind == Integration::Kind::thunarAction) {
        auto text = newSharedText();
        if (!text)
            return std::move(text).error();
        std::error_code code;
        const bool isNew = !std::filesystem::exists(m_integration.file, code);
        auto written = replaceWholeFile(m_integration.file, *text, kFileMode);
        if (written && isNew)
            created.add(m_integration.file);
        return written;
    }
    const bool mustRun = m_integration.kind == Integration::Kind::ownProgramFile;
    return replaceWholeFile(m_integration.file, m_integration.content,
                            mustRun ? kProgramMode : kFileMode);
}

Result<void> IntegrationFile::remove(CreatedPaths& created) const {
    const auto before = status();
    if (!before)
        return before.error();
    if (*before == IntegrationStatus::notInstalled)
        return {};
    if (*before == IntegrationStatus::notOurs)
        return notOurs();
    if (m_integration.kind == Integration::Kind::thunarAction)
        return removeShared(created);
    if (::unlink(m_integration.file.c_str()) != 0)
        return Error::fromErrno(errno, "remove", m_integration.file);
    return {};
}

Result<void> IntegrationFile::removeShared(CreatedPaths& created) const {
    const auto text = sharedText();
    if (!text)
        return text.error();
    const auto actions = ThunarActions::parse(*text);
    if (!actions)
        return notUnderstood();
    const auto rest = actions->without();
    const bool isOurs = created.contains(m_integration.file);
    created.forget(m_integration.file);
    if (!isOurs || rest != textToBeginWith())
        return replaceWholeFile(m_integration.file, rest, kFileMode);
    if (::unlink(m_integration.file.c_str()) != 0)
        return Error::fromErrno(errno, "remove", m_integration.file);
    return {};
}

/// Returns the text of the system-wide file, which the user's own file would hide.
std::string IntegrationFile::textToBeginWith() const {
    std::string_view rest = m_configDirs.empty() ? std::string_view("/etc/xdg") : m_configDirs;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        const Path folder(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (!folder.is_absolute())
            continue;
        auto text = readWholeFile(folder / "Thunar/uca.xml");
        if (text && ThunarActions::parse(*text))
            return *std::move(text);
    }
    return kNoThunarActions;
}

Result<IntegrationStatus> IntegrationFile::sharedStatus() const {
    const auto text = sharedText();
    if (!text)
        return text.error();
    if (text->empty())
        return IntegrationStatus::notInstalled;
    const auto actions = ThunarActions::parse(*text);
    if (!actions)
        return notUnderstood();
    const auto command = actions->command();
    if (!command)
        return IntegrationStatus::notInstalled;
    // Compare only the command, because Thunar rewrites the file and the user may have changed name
    // and icon.
    return *command == ThunarActions::commandOf(m_integration.content)
               ? IntegrationStatus::installed
               : IntegrationStatus::differs;
}

/// Returns an empty text if the file is missing.
Result<std::string> IntegrationFile::sharedText() const {
    auto text = readWholeFile(m_integration.file);
    if (!text && isMissing(text.error()))
        return std::string();
    return text;
}

Result<std::string> IntegrationFile::newSharedText() const {
    auto text = sharedText();
    if (!text)
        return text;
    const auto actions = ThunarActions::parse(text->empty() ? textToBeginWith() : *std::move(text));
    if (!actions)
        return notUnderstood();
    return actions->with(m_integration.content);
}

Error IntegrationFile::notOurs() const {
    return Error::fromErrno(EEXIST, "not ours, left as it is:", m_integration.file);
}

Error IntegrationFile::notUnderstood() const {
    return Error::fromErrno(EBADMSG, "not understood, left as it is:", m_integration.file);
}

} // namespace vexmoor
