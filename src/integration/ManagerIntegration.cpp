#include "ManagerIntegration.h"

#include "integration/DolphinShortcuts.h"
#include "integration/LineAccelerators.h"
#include "integration/NemoActionsTree.h"
#include "integration/Programs.h"
#include "integration/ProgramVersion.h"
#include "platform/Processes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace vexmoor {

namespace {

constexpr std::chrono::seconds kVersionTimeout{3};

std::optional<Path> programOf(const FileManager& manager, const std::string& searchPath) {
    for (const auto name : manager.programs)
        if (auto program = programOnSearchPath(name, searchPath))
            return program;
    return std::nullopt;
}

/// True if the file exists and was written by any version of ours.
bool isOurs(const IntegrationFile& file) {
    const auto status = file.status();
    return status &&
           (*status == IntegrationStatus::installed || *status == IntegrationStatus::differs);
}

} // namespace

ManagerIntegration::ManagerIntegration(const FileManager& manager,
                                       const IntegrationContext& context)
    : m_manager(manager), m_context(context), m_program(programOf(manager, context.searchPath)) {}

IntegrationFile ManagerIntegration::entry(Integration integration) const {
    return {std::move(integration), m_context.configDirs};
}

IntegrationFile ManagerIntegration::nemoScriptFile() const {
    return entry(nemoScript(m_context));
}

bool ManagerIntegration::hasNemoScript() const {
    return m_manager.accelerator == AcceleratorKind::nemo && isOurs(nemoScriptFile());
}

std::optional<IntegrationFile> ManagerIntegration::menu() const {
    if (hasNemoScript())
        return nemoScriptFile();
    auto integration = menuEntry(m_manager.menuEntry, m_context);
    return integration ? std::optional(entry(*std::move(integration))) : std::nullopt;
}

Result<void> ManagerIntegration::installMenu(CreatedPaths& created) const {
    const auto file = menu();
    return file ? file->install(created) : Result<void>();
}

Result<void> ManagerIntegration::removeMenu(CreatedPaths& created) const {
    if (hasNemoScript())
        if (auto removed = nemoScriptFile().remove(created); !removed)
            return removed;
    const auto integration = menuEntry(m_manager.menuEntry, m_context);
    auto removed = integration ? entry(*integration).remove(created) : Result<void>();
    created.removeEmptyFolders();
    return removed;
}

bool needsRestart(const KeyState& state) {
    return state.validity.needsRestart &&
           std::ranges::any_of(processesOf(state.manager->programs), [&](const auto& process) {
               return !state.validity.isEffectiveFor(process.started);
           });
}

KeyState ManagerIntegration::key() const {
    KeyState state;
    state.manager = &m_manager;
    const auto found = accelerator();
    if (!found) {
        state.error = found.error();
        return state;
    }
    const auto& file = *found;
    if (!file)
        return state;
    state.file = file->file();
    state.validity.needsRestart = file->validity().needsRestart;
    const auto status = file->status();
    if (!status) {
        state.status = AcceleratorStatus::notInstalled;
        state.error = status.error();
        return state;
    }
    state.status = *status;
    if (*status != AcceleratorStatus::installed)
        return state;
    state.validity = file->validity();
    state.waitsForRestart = needsRestart(state);
    return state;
}

Result<void> ManagerIntegration::installKey(CreatedPaths& created) const {
    const auto found = accelerator();
    if (!found)
        return found.error();
    if (!*found)
        return {};
    const auto& file = **found;
    const auto status = file.status();
    if (!status)
        return status.error();
    if (*status != AcceleratorStatus::notInstalled && *status != AcceleratorStatus::installed)
        return {};
    const bool isNemo = m_manager.accelerator == AcceleratorKind::nemo;
    const bool usesScript = isNemo && file.validity().needsRestart;
    if (isNemo && !usesScript &&
        hasNemoScript()) // Nemo was updated to a version that supports actions
        if (auto done = removeNemoKeys(created); !done)
            return done;
    if (auto done = usesScript ? installNemoScript(created) : installMenu(created); !done)
        return done;
    auto done = file.install(created);
    // Touch the action file: Nemo reads its tree again when a file in the folder changes.
    if (done && isNemo && !usesScript)
        ::utimensat(AT_FDCWD, menu()->file().c_str(), nullptr, 0);
    return done;
}

Result<void> ManagerIntegration::removeKey(CreatedPaths& created) const {
    if (m_manager.accelerator == AcceleratorKind::nemo)
        return removeNemoKeys(created);
    const auto found = accelerator();
    if (!found)
        return found.error();
    auto removed = *found ? (*found)->remove(created) : Result<void>();
    created.removeEmptyFolders();
    return removed;
}

/// Installs the script and removes the action, so that the menu has one entry.
Result<void> ManagerIntegration::installNemoScript(CreatedPaths& created) const {
    const auto script = nemoScriptFile();
    if (auto done = script.install(created); !done)
        return done;
    const auto action = entry(*menuEntry(m_manager.menuEntry, m_context));
    auto done = isOurs(action) ? action.remove(created) : Result<void>();
    created.removeEmptyFolders();
    return done;
}

/// Removes the bindings of both formats, because Nemo may have been updated since. Replaces the
/// script by the action, unless the user chose another key for the script.
Result<void> ManagerIntegration::removeNemoKeys(CreatedPaths& created) const {
    for (const auto kind : {NemoKey::script, NemoKey::tree})
        if (auto done = nemoAccelerator(kind).remove(created); !done)
            return done;
    const auto status = nemoAccelerator(NemoKey::script).status();
    Result<void> done;
    if (hasNemoScript() && status && *status != AcceleratorStatus::otherKey) {
        done = entry(*menuEntry(m_manager.menuEntry, m_context)).install(created);
        if (done)
            done = nemoScriptFile().remove(created);
    }
    created.removeEmptyFolders();
    return done;
}

Result<std::optional<AcceleratorFile>> ManagerIntegration::accelerator() const {
    using Found = std::optional<AcceleratorFile>;
    const bool dependsOnVersion = m_manager.accelerator == AcceleratorKind::nemo ||
                                  m_manager.accelerator == AcceleratorKind::dolphin;
    if (dependsOnVersion && !m_program)
        return Found();
    switch (m_manager.accelerator) {
    case AcceleratorKind::thunar:
        return Found(thunarAccelerator());
    case AcceleratorKind::nautilus:
        return Found(nautilusAccelerator());
    case AcceleratorKind::nemo: {
        const auto hasTree = isAtLeast(6, 4);
        if (!hasTree)
            return hasTree.error();
        return Found(nemoAccelerator(*hasTree ? NemoKey::tree : NemoKey::script));
    }
    case AcceleratorKind::dolphin: {
        const auto hasShortcuts = isAtLeast(26, 4);
        if (!hasShortcuts)
            return hasShortcuts.error();
        return *hasShortcuts ? Found(dolphinAccelerator()) : Found();
    }
    case AcceleratorKind::none:
        break;
    }
    return Found();
}

/// Fails if the file manager does not report its version.
Result<bool> ManagerIntegration::isAtLeast(int major, int minor) const {
    std::vector<std::string> environment = {"LC_ALL=C.UTF-8"};
    if (m_manager.accelerator == AcceleratorKind::dolphin)
        environment.emplace_back("QT_QPA_PLATFORM=offscreen");
    const auto version = versionOf(*m_program, environment, kVersionTimeout);
    if (!version)
        return version.error();
    return *version >= ProgramVersion{major, minor};
}

AcceleratorFile ManagerIntegration::thunarAccelerator() const {
    return {m_context.directories.configHome / "Thunar/accels.scm",
            std::make_unique<AcceleratorMap>("<Actions>/ThunarActions/uca-action-vexmoor-feed"),
            true};
}

AcceleratorFile ManagerIntegration::nautilusAccelerator() const {
    return {m_context.directories.configHome / "nautilus/scripts-accels",
            std::make_unique<ScriptAccelerators>(kMenuTitle), true};
}

AcceleratorFile ManagerIntegration::nemoAccelerator(NemoKey kind) const {
    const auto& directories = m_context.directories;
    if (kind == NemoKey::tree)
        return {directories.configHome / "nemo/actions-tree.json",
                std::make_unique<NemoActionsTree>(kNemoActionFile), false};
    return {directories.home / ".gnome2/accels/nemo",
            std::make_unique<AcceleratorMap>(
                AcceleratorMap::pathOfNemoScript(nemoScript(m_context).file)),
            true};
}

AcceleratorFile ManagerIntegration::dolphinAccelerator() const {
    const auto& directories = m_context.directories;
    AcceleratorFile file(directories.dataHome / "kxmlgui5/dolphin/dolphinui.rc",
                         std::make_unique<DolphinShortcuts>(), true);
    file.alsoNeeds(directories.configHome / "dolphinrc", std::make_unique<DolphinProfile>());
    return file;
}

} // namespace vexmoor
