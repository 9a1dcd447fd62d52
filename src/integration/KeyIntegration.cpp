#include "KeyIntegration.h"

#include <algorithm>
#include <cerrno>
#include <functional>

namespace vexmoor {

namespace {

using Work = std::function<Result<void>(const ManagerIntegration&, CreatedPaths&)>;

std::vector<KeyState> forEachInstalled(const IntegrationContext& context, const Work& work) {
    std::vector<KeyState> states;
    CreatedPaths created(context.directories);
    for (const auto& manager : kFileManagers) {
        const ManagerIntegration integration(manager, context);
        if (!integration.isInstalled())
            continue;
        const auto done = work(integration, created);
        states.push_back(integration.key());
        if (!done && !states.back().error)
            states.back().error = done.error();
    }
    return states;
}

} // namespace

std::vector<KeyState> KeyIntegration::status() const {
    return forEachInstalled(m_context, [](const auto&, auto&) { return Result<void>(); });
}

std::vector<KeyState> KeyIntegration::install() const {
    return forEachInstalled(m_context, [&](const auto& integration, auto& created) {
        return m_context.canBeWritten()
                   ? integration.installKey(created)
                   : Result<void>(Error::fromErrno(EILSEQ, "write the name of", m_context.program));
    });
}

std::vector<KeyState> KeyIntegration::remove() const {
    return forEachInstalled(m_context, [](const auto& integration, auto& created) {
        return integration.removeKey(created);
    });
}

bool KeyIntegration::hasMenuEntry() const {
    return std::ranges::any_of(kFileManagers, [this](const FileManager& manager) {
        const ManagerIntegration integration(manager, m_context);
        const auto menu = integration.isInstalled() ? integration.menu() : std::nullopt;
        const auto status = menu ? menu->status() : IntegrationStatus::notInstalled;
        return status &&
               (*status == IntegrationStatus::installed || *status == IntegrationStatus::differs);
    });
}

} // namespace vexmoor
