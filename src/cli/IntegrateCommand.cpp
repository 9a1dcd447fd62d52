#include "Commands.h"

#include "cli/ExitStatus.h"
#include "integration/IntegrationFile.h"
#include "integration/Programs.h"
#include "cli/Terminal.h"
#include "disposal/DisposalError.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iomanip>
#include <iostream>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

struct Row {
    Integration integration;
    std::optional<IntegrationStatus> status; ///< nothing where it could not be found out
};

struct Failed {
    std::string id;
    std::string sentence;
};

const char* asWords(const std::optional<IntegrationStatus>& status) {
    if (!status)
        return "unknown";
    switch (*status) {
    case IntegrationStatus::notInstalled:
        return "not installed";
    case IntegrationStatus::installed:
        return "installed";
    case IntegrationStatus::differs:
        return "differs";
    case IntegrationStatus::notOurs:
        return "not ours";
    }
    return "unknown";
}

/// The program's place becomes text in files of several languages.
bool canBeWritten(const Path& program) {
    return program.is_absolute() && isValidUtf8(program.native()) &&
           std::ranges::none_of(program.native(), [](char c) {
               return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
           });
}

std::string sentenceOf(const Integration& integration, const Error& error) {
    if (error.code == std::errc::file_exists)
        return displayText(integration.file.native()) + " is not ours. It was left as it is.";
    if (error.code == std::errc::bad_message)
        return displayText(integration.file.native()) +
               " could not be understood. It was left as it is.";
    return describe(error);
}

/// Carries the action out on each, and then looks how each is.
std::vector<Row> carryOut(const std::string& action, std::vector<Integration> all,
                          std::vector<Failed>& failures) {
    std::vector<Row> rows;
    for (auto& integration : all) {
        const IntegrationFile file(integration);
        const auto done = action == "install" && integration.isAvailable ? file.install()
                          : action == "remove"                           ? file.remove()
                                                                         : Result<void>();
        const auto status = file.status();
        if (!done)
            failures.push_back({integration.id, sentenceOf(integration, done.error())});
        else if (!status)
            failures.push_back({integration.id, sentenceOf(integration, status.error())});
        rows.push_back({std::move(integration), status ? std::optional(*status) : std::nullopt});
    }
    return rows;
}

void print(const std::vector<Row>& rows) {
    for (const auto& [integration, status] : rows)
        std::cout << std::left << std::setw(22) << integration.title << "  " << std::setw(13)
                  << asWords(status) << "  " << printable(integration.file.native()) << "\n";
}

void printJson(const std::vector<Row>& rows, const std::vector<Failed>& failures) {
    Json json = {{"integrations", Json::array()}, {"failures", Json::array()}};
    for (const auto& [integration, status] : rows)
        json["integrations"].push_back({{"id", integration.id},
                                        {"file", pathToJsonText(integration.file.native())},
                                        {"status", asWords(status)}});
    for (const auto& failure : failures)
        json["failures"].push_back({{"name", failure.id}, {"error", failure.sentence}});
    std::cout << json.dump(2) << "\n";
}

} // namespace

int runIntegrate(const Invocation& invocation) {
    const Path program = ownProgram();
    const auto desktop = desktopProgram();
    if (!canBeWritten(program) || (desktop && !canBeWritten(*desktop))) {
        complain("This program's place has a name that file managers can't be told: " +
                 printable(program.native()));
        return kRefused;
    }
    std::vector<Failed> failures;
    const auto rows = carryOut(
        invocation.action, integrations(UserDirectories::ofProcess(), program, desktop), failures);
    if (invocation.json)
        printJson(rows, failures);
    else
        print(rows);
    for (const auto& failure : failures)
        complain(printable(failure.sentence));
    return failures.empty() ? kAllDone : kSomeFailed;
}

} // namespace vexmoor
