#include "CommandLine.h"

#include "base/Path.h"
#include "base/Text.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"
#include "intake/NamedSettings.h"
#include "integration/FileManagers.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace vexmoor {

namespace {

using Command = Invocation::Command;

/// Stands before arguments while they are parsed that the parser would take apart: to it "[a,b]" is
/// a list of its own and "{}" an empty one, to the user they are names of files. So is all that
/// stands behind "--", which the parser heeds only before the first name.
constexpr char kGuard = '\x1a';

bool needsGuard(const std::string& argument) {
    return !argument.empty() && (argument.front() == '[' || argument.front() == '{' ||
                                 argument.front() == '%' || argument.front() == kGuard);
}

std::vector<std::string> guarded(std::vector<std::string> arguments) {
    const auto mark = std::ranges::find(arguments, "--");
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument)
        if (needsGuard(*argument) || (argument > mark && !argument->empty()))
            argument->insert(0, 1, kGuard);
    if (mark != arguments.end())
        arguments.erase(mark);
    return arguments;
}

void takeGuard(std::string& argument) {
    if (argument.starts_with(kGuard))
        argument.erase(0, 1);
}

/// An empty argument is mostly a shell's variable that was not set; it must not come to stand for
/// the current folder.
std::string refuseEmpty(const std::string& argument) {
    return argument.empty() ? text("is empty. Nothing was touched") : "";
}

CLI::App* addCommand(CLI::App& app, Invocation& invocation, const char* name, Command command,
                     const std::string& description) {
    CLI::App* const added = app.add_subcommand(name, description);
    added->group(text("Subcommands"));
    added->get_help_ptr()->group(text("Options"));
    added->callback([&invocation, command] { invocation.command = command; });
    return added;
}

void addJson(CLI::App& command, Invocation& invocation) {
    command.add_flag("--json", invocation.json, text("Print one JSON document"));
}

void addFeed(CLI::App& app, Invocation& invocation) {
    auto& feed = *addCommand(app, invocation, "feed", Command::feed,
                             text("Feed files and folders to the cauldron"));
    feed.add_option(
            "--mode", invocation.mode,
            text("Move them to the Bin, or dissolve them forever; without it as the settings say"))
        ->check(CLI::IsMember({"bin", "dissolve"}))
        ->type_name("MODE");
    auto* const yes = feed.add_flag("--yes", invocation.yes, text("Dissolve without asking"));
    auto* const fromMenu = feed.add_flag_callback(
        "--from-menu", [&invocation] { invocation.fromMenu = true; },
        text("For menus: ask and report on the desktop instead of a terminal"));
    fromMenu->excludes(yes);
    addJson(feed, invocation);
    auto* const paths = feed.add_option("PATH", invocation.items,
                                        text("What to feed; file:/// URIs are understood too"))
                            ->required()
                            ->check(CLI::Validator(refuseEmpty, ""))
                            ->type_name("PATH");
    fromMenu->each([paths](const std::string&) { paths->required(false); }); // nothing is selected
}

void addPutBack(CLI::App& app, Invocation& invocation) {
    auto& putBack =
        *addCommand(app, invocation, "put-back", Command::putBack,
                    text("Put sacrifices back where they were; without arguments the whole "
                         "last batch"));
    auto* const last = putBack.add_option("--last", invocation.last, text("The newest N items"))
                           ->check(CLI::PositiveNumber)
                           ->type_name("N");
    addJson(putBack, invocation);
    putBack.add_option("ITEM", invocation.items, text("Ids or names, as the history shows them"))
        ->type_name("ITEM")
        ->excludes(last);
}

void addDelete(CLI::App& app, Invocation& invocation) {
    auto& erase = *addCommand(app, invocation, "delete", Command::erase,
                              text("Delete sacrifices from the Bin, forever"));
    erase.add_flag("--yes", invocation.yes, text("Do not ask"));
    addJson(erase, invocation);
    erase.add_option("ITEM", invocation.items, text("Ids or names, as the history shows them"))
        ->type_name("ITEM")
        ->required();
}

void addHistory(CLI::App& app, Invocation& invocation) {
    auto& history = *addCommand(app, invocation, "history", Command::history,
                                text("Show the recent sacrifices, newest first, and their fate"));
    history.add_option("-n", invocation.number, text("How many at most"))
        ->check(CLI::PositiveNumber)
        ->type_name("N");
    history.add_flag("--all", invocation.all,
                     text("After them, all others that can still be put back"));
    addJson(history, invocation);
}

void addStats(CLI::App& app, Invocation& invocation) {
    addJson(*addCommand(app, invocation, "stats", Command::stats,
                        text("Show totals, the week, the streak, achievements and the cauldron")),
            invocation);
}

void addSettings(CLI::App& app, Invocation& invocation) {
    auto& settings = *addCommand(app, invocation, "settings", Command::settings,
                                 text("List the settings, read one or set it"));
    addJson(settings, invocation);
    settings.add_option("NAME", invocation.name, text("The setting"))
        ->check(CLI::IsMember(NamedSettings::names()))
        ->type_name("NAME");
    settings.add_option("VALUE", invocation.value, text("Its new value"))
        ->check(CLI::Validator(refuseEmpty, ""))
        ->type_name("VALUE");
}

std::string integrationIds() {
    std::string ids;
    for (const auto& manager : kFileManagers)
        ids += std::string(manager.id) + ",";
    return ids + kAutostartId;
}

std::string refuseUnknownIntegration(const std::string& argument) {
    const bool isKnown = argument == kAutostartId || argument == kFormerDolphinId ||
                         fileManagerWithId(argument) != nullptr;
    return isKnown ? "" : text("%1 is not known. Known are %2", {argument, integrationIds()});
}

void addIntegrate(CLI::App& app, Invocation& invocation) {
    auto& integrate =
        *addCommand(app, invocation, "integrate", Command::integrate,
                    text("Put \"Feed to Vexmoor\" and its key into the file managers, "
                         "and start with the session"));
    addJson(integrate, invocation);
    integrate.add_option("ACTION", invocation.action, text("What to do; without it, status"))
        ->check(CLI::IsMember({"install", "remove", "status"}))
        ->type_name("ACTION");
    integrate
        .add_option("ID", invocation.items,
                    text("A file manager, or autostart; without one, all that are installed"))
        ->check(CLI::Validator(refuseUnknownIntegration, "{" + integrationIds() + "}"))
        ->type_name("ID");
}

void addDoctor(CLI::App& app, Invocation& invocation) {
    addJson(*addCommand(app, invocation, "doctor", Command::doctor,
                        text("Show what works in this session and why, for reports of errors")),
            invocation);
}

struct CommandDescription {
    std::string_view name;
    void (*add)(CLI::App& app, Invocation& invocation);
};

constexpr CommandDescription kCommands[] = {
    {"feed", &addFeed},           {"put-back", &addPutBack}, {"delete", &addDelete},
    {"history", &addHistory},     {"stats", &addStats},      {"settings", &addSettings},
    {"integrate", &addIntegrate}, {"doctor", &addDoctor},
};

void takeGuards(Invocation& invocation) {
    for (auto* value : {&invocation.mode, &invocation.name, &invocation.value, &invocation.action})
        takeGuard(*value);
    std::ranges::for_each(invocation.items, takeGuard);
}

/// File managers hand over URIs where a name could not be told from two.
void decodeUris(std::vector<std::string>& items) {
    for (auto& item : items)
        if (item.starts_with("file:///"))
            if (const auto path = pathFromFileUri(item))
                item = path->native();
}

/// The headings of help texts, which commands inherit.
void nameParts(CLI::App& app) {
    for (const char* label : {marked("Usage"), marked("OPTIONS"), marked("SUBCOMMAND"),
                              marked("REQUIRED"), marked("Positionals"), marked("Excludes")})
        app.get_formatter()->label(label, text(label));
    app.option_defaults()->group(text("Options"));
}

} // namespace

std::unique_ptr<CLI::App> describeCommands(Invocation& invocation, std::string_view only) {
    auto app = std::make_unique<CLI::App>(
        text("Throws files away with a little ceremony. Without a command it opens the window."),
        "vexmoor");
    nameParts(*app);
    app->set_version_flag("--version", "vexmoor " VEXMOOR_VERSION, text("Print the version"));
    app->add_flag_callback(
        "--probe", [&invocation] { invocation.command = Command::probe; },
        text("Print what the desktop application sees of the desktop"));
    app->set_help_flag("--help,-h", text("Print this help"));
    app->require_subcommand(0, 1);
    app->failure_message([](const CLI::App* failed, const CLI::Error& error) {
        std::string sentence = error.what();
        std::erase(sentence, kGuard);
        return "vexmoor: " + printable(sentence) + "\n" +
               text("Try '%1 --help'.", {failed->get_display_name()}) + "\n";
    });
    const bool wantsAll = std::ranges::find(kCommands, only, &CommandDescription::name) ==
                          std::ranges::end(kCommands);
    for (const auto& command : kCommands)
        if (wantsAll || command.name == only)
            command.add(*app, invocation);
    return app;
}

ParsedCommandLine parseCommandLine(int argc, const char* const* argv) {
    ParsedCommandLine parsed;
    Invocation invocation;
    const auto app = describeCommands(invocation, argc > 1 ? argv[1] : "");
    auto arguments = guarded({argv + std::min(argc, 1), argv + argc});
    std::ranges::reverse(arguments); // as the parser wants them
    try {
        app->parse(std::move(arguments));
        takeGuards(invocation);
        if (invocation.command == Command::feed)
            decodeUris(invocation.items);
        parsed.invocation = std::move(invocation);
    } catch (const CLI::ParseError& error) {
        std::ostringstream output;
        std::ostringstream complaint;
        parsed.status = app->exit(error, output, complaint) == 0 ? kAllDone : kUsage;
        parsed.output = output.str();
        parsed.error = complaint.str();
    }
    return parsed;
}

} // namespace vexmoor
