#include "Commands.h"

#include "base/Text.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Session.h"
#include "cli/Terminal.h"
#include "disposal/DisposalError.h"
#include "integration/ManagerIntegration.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

struct Row {
    std::string id;
    std::string title;
    bool hasMenu = true;
    Path file;
    std::optional<IntegrationStatus> status; ///< nullopt if it could not be determined
    std::optional<KeyState> key;             ///< nullopt if there is no key
};

struct Failed {
    std::string id;
    Error error;
};

/// Returns the status in English, for programs.
const char* asWords(const Row& row) {
    if (!row.hasMenu)
        return marked("unsupported");
    if (!row.status)
        return marked("unknown");
    switch (*row.status) {
    case IntegrationStatus::notInstalled:
        return marked("not installed");
    case IntegrationStatus::installed:
        return marked("installed");
    case IntegrationStatus::differs:
        return marked("differs");
    case IntegrationStatus::notOurs:
        return marked("not ours");
    }
    return marked("unknown");
}

const char* asWords(const KeyState& key) {
    if (key.error)
        return marked("unknown");
    switch (key.status) {
    case AcceleratorStatus::unsupported:
        return marked("unsupported");
    case AcceleratorStatus::notInstalled:
        return marked("not installed");
    case AcceleratorStatus::installed:
        return marked("installed");
    case AcceleratorStatus::otherKey:
        return marked("other key");
    case AcceleratorStatus::taken:
        return marked("taken");
    }
    return marked("unknown");
}

std::string sentenceOf(const KeyState& key, bool hasMenu) {
    if (key.error)
        return text("unknown");
    const auto& title = key.manager->title;
    switch (key.status) {
    case AcceleratorStatus::unsupported:
        return hasMenu ? text("captured on X11; on Wayland there is the menu entry")
                       : text("captured on X11; nothing on Wayland");
    case AcceleratorStatus::notInstalled:
        return text("not installed");
    case AcceleratorStatus::installed:
        return key.waitsForRestart ? text("installed; it works after the next start of %1", {title})
                                   : text("installed");
    case AcceleratorStatus::otherKey:
        return text("the entry has another key or none by your own choice, which is kept");
    case AcceleratorStatus::taken:
        return text("bound to something else in %1, which is left so", {title});
    }
    return text("unknown");
}

std::string sentenceOf(const Error& error) {
    const auto file = displayText(error.path.native());
    if (error.code == std::errc::file_exists)
        return text("%1 is not ours. It was left as it is.", {file});
    if (error.code == std::errc::bad_message)
        return text("%1 could not be understood. It was left as it is.", {file});
    if (error.code == std::errc::invalid_argument)
        return text("%1 is not a regular file. It was left as it is.", {file});
    if (error.code == std::errc::file_too_large)
        return text("%1 is too long. It was left as it is.", {file});
    if (error.operation == "run" || error.operation == "read the version of")
        return text("%1 does not report its version here, on which its key depends. Try again in "
                    "a desktop session.",
                    {file});
    return text("%1: %2", {file, describe(error)});
}

/// Runs one action on the requested integrations.
class Integrator {
  public:
    Integrator(const Invocation& invocation, const IntegrationContext& context, bool wantsKey)
        : m_invocation(invocation), m_context(context), m_wantsKey(wantsKey),
          m_created(context.directories) {}

    void carryOut() {
        for (const auto& manager : kFileManagers)
            carryOut(ManagerIntegration(manager, m_context));
        if (m_invocation.items.empty() || isNamed(kAutostartId))
            carryOutAutostart();
    }

    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }
    [[nodiscard]] const std::vector<Failed>& failures() const { return m_failures; }

  private:
    [[nodiscard]] bool does(const char* action) const { return m_invocation.action == action; }

    [[nodiscard]] bool isNamed(std::string_view id) const {
        return std::ranges::any_of(m_invocation.items, [&](const auto& item) {
            return item == id || (item == kFormerDolphinId && id == "dolphin");
        });
    }

    /// False if it failed; the failure is recorded.
    bool succeeded(const std::string& id, const Result<void>& done) {
        if (!done)
            m_failures.push_back({id, done.error()});
        return done.ok();
    }

    /// Removal does not require the file manager to be installed.
    void carryOut(const ManagerIntegration& integration) {
        const std::string id(integration.manager().id);
        const bool isAsked = m_invocation.items.empty() ? integration.isInstalled() : isNamed(id);
        if (!isAsked && !(does("remove") && m_invocation.items.empty()))
            return;
        bool isWell = true;
        if (does("install")) {
            isWell = succeeded(id, integration.installMenu(m_created));
            if (m_wantsKey)
                isWell &= succeeded(id, integration.installKey(m_created));
        } else if (does("remove")) {
            isWell = succeeded(id, integration.removeKey(m_created));
            isWell &= succeeded(id, integration.removeMenu(m_created));
        }
        if (isAsked)
            look(integration, isWell);
    }

    void look(const ManagerIntegration& integration, bool isWell) {
        Row row;
        row.id = integration.manager().id;
        row.title = integration.manager().title;
        const auto menu = integration.menu();
        row.hasMenu = menu.has_value();
        if (menu)
            lookAt(row, *menu, isWell);
        row.key = integration.key();
        if (row.key->error && isWell)
            m_failures.push_back({row.id, *row.key->error});
        m_rows.push_back(std::move(row));
    }

    void lookAt(Row& row, const IntegrationFile& file, bool isWell) {
        row.file = file.file();
        const auto status = file.status();
        if (status)
            row.status = *status;
        else if (isWell)
            m_failures.push_back({row.id, status.error()});
    }

    void carryOutAutostart() {
        const Integration entry = autostart(m_context);
        const IntegrationFile file(entry, m_context.configDirs);
        bool isWell = true;
        if (does("install") && entry.isAvailable)
            isWell = succeeded(kAutostartId, file.install(m_created));
        else if (does("remove"))
            isWell = succeeded(kAutostartId, file.remove(m_created));
        m_created.removeEmptyFolders();
        Row row;
        row.id = kAutostartId;
        row.title = text("Start with the session");
        lookAt(row, file, isWell);
        m_rows.push_back(std::move(row));
    }

    const Invocation& m_invocation;
    const IntegrationContext& m_context;
    bool m_wantsKey;
    CreatedPaths m_created;
    std::vector<Row> m_rows;
    std::vector<Failed> m_failures;
};

void print(const std::vector<Row>& rows) {
    constexpr std::size_t kTitleWidth = 22;
    constexpr std::size_t kStatusWidth = 13;
    for (const auto& row : rows) {
        std::cout << leftAligned(row.title, kTitleWidth) << "  "
                  << leftAligned(text(asWords(row)), kStatusWidth) << "  "
                  << printable(row.file.native()) << "\n";
        if (row.key)
            std::cout << "  " << text("Ctrl+Backspace: %1", {sentenceOf(*row.key, row.hasMenu)})
                      << "\n";
    }
}

Json jsonOf(const Row& row) {
    Json json = {
        {"id", row.id}, {"file", pathToJsonText(row.file.native())}, {"status", asWords(row)}};
    if (row.key)
        json["key"] = {{"status", asWords(*row.key)},
                       {"file", pathToJsonText(row.key->file.native())},
                       {"waits", row.key->waitsForRestart}};
    return json;
}

void printJson(const std::vector<Row>& rows, const std::vector<Failed>& failures) {
    Json json = {{"integrations", Json::array()}, {"failures", Json::array()}};
    for (const auto& row : rows)
        json["integrations"].push_back(jsonOf(row));
    const InEnglish forMachines;
    for (const auto& [id, error] : failures) {
        const auto message = sentenceOf(error);
        json["failures"].push_back({{"name", id},
                                    {"path", pathToJsonText(error.path.native())},
                                    {"code", codeName(error.code)},
                                    {"message", message},
                                    {"error", message}});
    }
    std::cout << json.dump(2) << "\n";
}

/// True if the setting binds Ctrl+Backspace.
Result<bool> wantsKey() {
    const auto session = Session::openForReading();
    if (!session)
        return session.error();
    return (*session)->settings().captureFinderDelete.get();
}

} // namespace

int runIntegrate(const Invocation& invocation) {
    const auto context = IntegrationContext::ofProcess();
    const bool installs = invocation.action == "install";
    if (installs && !context.canBeWritten()) {
        complain(text("File managers can't be given the name of this program's place: %1",
                      {printable(context.program.native())}));
        return kRefused;
    }
    const auto key = installs ? wantsKey() : Result(false);
    if (!key) {
        complain(text("The settings can't be read, so nothing was installed: %1",
                      {printable(describe(key.error()))}));
        return kRefused;
    }
    Integrator integrator(invocation, context, *key);
    integrator.carryOut();
    if (invocation.json)
        printJson(integrator.rows(), integrator.failures());
    else if (!invocation.quiet)
        print(integrator.rows());
    for (const auto& failure : integrator.failures())
        complain(printable(sentenceOf(failure.error)));
    return integrator.failures().empty() ? kAllDone : kSomeFailed;
}

} // namespace vexmoor
