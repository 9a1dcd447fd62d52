#include "CommandTable.h"

#include "base/Marked.h"
#include "cli/SettingDescription.h"
#include "intake/NamedSettings.h"
#include "integration/FileManagers.h"

#include <algorithm>

namespace vexmoor {

namespace {

using Command = Invocation::Command;
using Kind = Argument::Kind;

std::vector<std::string> modes() {
    return {"bin", "dissolve"};
}

std::vector<std::string> actions() {
    return {"install", "remove", "status"};
}

std::vector<std::string> integrationIds() {
    std::vector<std::string> ids;
    ids.reserve(kFileManagers.size() + 1);
    for (const auto& manager : kFileManagers)
        ids.emplace_back(manager.id);
    ids.emplace_back(kAutostartId);
    return ids;
}

constexpr Option kHelp{"h", "help", &Invocation::help, marked("Print this help")};
constexpr Option kJson{"", "json", &Invocation::json, marked("Print one JSON document")};
constexpr Option kQuiet{"q", "quiet", &Invocation::quiet,  marked("Print failures only"),
                        {},  nullptr, &Invocation::verbose};

constexpr Option kProgramOptions[] = {
    kHelp,
    {"V", "version", &Invocation::version, marked("Print the version")},
    {"", "probe", &Invocation::probe,
     marked("Print what the desktop application sees of the desktop")},
};

constexpr Option kFeedOptions[] = {
    {"", "mode", &Invocation::mode,
     marked("Move to the Bin or dissolve forever; by default as the settings say"), "MODE", &modes},
    {"", "yes", &Invocation::yes, marked("Dissolve without asking")},
    {"f",
     "force",
     &Invocation::force,
     marked("Ignore files that do not exist"),
     {},
     nullptr,
     &Invocation::asksEach},
    {"i",
     "",
     &Invocation::asksEach,
     marked("Ask before each item"),
     {},
     nullptr,
     &Invocation::force},
    {"rR", "recursive", &Invocation::recursive, marked("No effect: folders are always fed whole")},
    {"v",
     "verbose",
     &Invocation::verbose,
     marked("List every item, even if there are many"),
     {},
     nullptr,
     &Invocation::quiet},
    kQuiet,
    kJson,
    {"", "from-menu", &Invocation::fromMenu,
     marked("For menus: ask and report on the desktop instead of a terminal")},
    kHelp,
};
constexpr Argument kFeedArguments[] = {
    {"PATH", Kind::file, &Invocation::items,
     marked("What to feed; file:/// URIs are understood too"), true},
};
constexpr std::pair<std::string_view, std::string_view> kFeedConflicts[] = {
    {"--from-menu", "--yes"}, {"--from-menu", "-i"}};
constexpr Example kFeedExamples[] = {
    {"vexmoor feed notes.txt drafts", marked("a file and a folder")},
    {"vexmoor feed -- *", marked("all in this folder, whatever the names are")},
    {"vexmoor feed --mode dissolve old", marked("no way back; asks first")},
    {"alias rm='vexmoor feed'", marked("an rm that can be undone")},
};

constexpr Option kPutBackOptions[] = {
    {"", "last", &Invocation::last, marked("The newest N items"), "N"},
    kQuiet,
    kJson,
    kHelp,
};
constexpr Argument kPutBackArguments[] = {
    {"ITEM", Kind::binnedItem, &Invocation::items,
     marked("A name or an id as the history shows it, or the path where it was")},
};
constexpr std::pair<std::string_view, std::string_view> kPutBackConflicts[] = {{"--last", "ITEM"}};
constexpr Example kPutBackExamples[] = {
    {"vexmoor put-back", marked("the whole last batch")},
    {"vexmoor put-back notes.txt", marked("one item, by its name")},
    {"vexmoor put-back --last 3", marked("the three that went last")},
};

constexpr Option kDeleteOptions[] = {
    {"", "yes", &Invocation::yes, marked("Do not ask")},
    kQuiet,
    kJson,
    kHelp,
};
constexpr Argument kDeleteArguments[] = {
    {"ITEM", Kind::binnedItem, &Invocation::items,
     marked("A name or an id as the history shows it, or the path where it was"), true},
};
constexpr Example kDeleteExamples[] = {
    {"vexmoor delete notes.txt", marked("one item, by its name")},
    {"vexmoor delete --yes 479C3897", marked("one item, by its id, without asking")},
};

constexpr Option kHistoryOptions[] = {
    {"n", "", &Invocation::number, marked("How many at most"), "N"},
    {"", "all", &Invocation::all, marked("After them, all others that can still be put back")},
    kJson,
    kHelp,
};
constexpr Example kHistoryExamples[] = {
    {"vexmoor history -n 5", marked("the five newest")},
    {"vexmoor history --all | less", marked("everything that can be put back too")},
};

constexpr Option kJsonOptions[] = {kJson, kHelp};

constexpr Option kSettingsOptions[] = {kJson, kHelp};
constexpr Argument kSettingsArguments[] = {
    {"NAME", Kind::choice, &Invocation::name, marked("The setting"), false, &NamedSettings::names,
     marked("%1 is no setting.")},
    {"VALUE", Kind::settingValue, &Invocation::value, marked("Its new value")},
};
constexpr Example kSettingsExamples[] = {
    {"vexmoor settings", marked("all of them")},
    {"vexmoor settings mode dissolve", marked("sets one")},
};

constexpr Option kIntegrateOptions[] = {kQuiet, kJson, kHelp};
constexpr Argument kIntegrateArguments[] = {
    {"ACTION", Kind::choice, &Invocation::action, marked("What to do; without it, status"), false,
     &actions, marked("%1 is no action.")},
    {"ID", Kind::choice, &Invocation::items,
     marked("A file manager, or autostart; without one, all that are installed"), false,
     &integrationIds, marked("%1 is no id.")},
};
constexpr Example kIntegrateExamples[] = {
    {"vexmoor integrate install", marked("all file managers that are installed")},
    {"vexmoor integrate remove thunar", marked("one of them")},
};

constexpr Option kHelpOptions[] = {kHelp};
constexpr Argument kHelpArguments[] = {
    {"COMMAND", Kind::choice, &Invocation::name, marked("The command"), false, &commandNames,
     marked("%1 is no command.")},
};

constexpr Example kProgramExamples[] = {
    {"vexmoor feed notes.txt drafts", marked("to the Bin")},
    {"vexmoor put-back", marked("brings the last batch back")},
    {"vexmoor", marked("opens the window")},
};

constexpr CommandDescription kProgram{
    .name = "vexmoor",
    .command = Command::open,
    .summary =
        marked("Throws files away with a little ceremony. Without a command it opens the window"),
    .options = kProgramOptions,
    .examples = kProgramExamples};

constexpr CommandDescription kCommands[] = {
    {.name = "feed",
     .command = Command::feed,
     .summary = marked("Feed files and folders to the cauldron"),
     .options = kFeedOptions,
     .arguments = kFeedArguments,
     .details = marked(
         "Items go to the Bin of their volume; put-back restores them. Dissolving deletes them at "
         "once, and asks first.\n\n"
         "-f, -i, -r and -v work as in rm. Of -f and -i, and of -q and -v, the last one given "
         "counts. -f does not answer the question before dissolving; --yes does."),
     .examples = kFeedExamples,
     .conflicts = kFeedConflicts,
     .synonyms = "rm remove trash throw bin"},
    {.name = "put-back",
     .command = Command::putBack,
     .summary =
         marked("Put sacrifices back where they were; without arguments the whole last batch"),
     .options = kPutBackOptions,
     .arguments = kPutBackArguments,
     .details = marked(
         "Repeated, it puts back the batch before that. If another file has taken the place of "
         "an item in the meantime, that file stays, and the item gets a number."),
     .examples = kPutBackExamples,
     .conflicts = kPutBackConflicts,
     .synonyms = "restore undo back recover untrash"},
    {.name = "delete",
     .command = Command::erase,
     .summary = marked("Delete sacrifices from the Bin, forever"),
     .options = kDeleteOptions,
     .arguments = kDeleteArguments,
     .examples = kDeleteExamples,
     .synonyms = "erase purge empty"},
    {.name = "history",
     .command = Command::history,
     .summary = marked("Show the recent sacrifices, newest first, and their fate"),
     .options = kHistoryOptions,
     .examples = kHistoryExamples,
     .synonyms = "list ls log show"},
    {.name = "stats",
     .command = Command::stats,
     .summary = marked("Show totals, the week, the streak, achievements and the cauldron"),
     .options = kJsonOptions,
     .synonyms = "status statistics achievements"},
    {.name = "settings",
     .command = Command::settings,
     .summary = marked("List the settings, read one or set it"),
     .options = kSettingsOptions,
     .arguments = kSettingsArguments,
     .examples = kSettingsExamples,
     .synonyms = "config configure preferences options set get"},
    {.name = "integrate",
     .command = Command::integrate,
     .summary = marked("Put \"Feed to Vexmoor\" and its key into the file managers, and start with "
                       "the session"),
     .options = kIntegrateOptions,
     .arguments = kIntegrateArguments,
     .examples = kIntegrateExamples,
     .synonyms = "install setup"},
    {.name = "doctor",
     .command = Command::doctor,
     .summary = marked("Show what works in this session and why, for reports of errors"),
     .options = kJsonOptions,
     .synonyms = "diagnose check info"},
    {.name = "help",
     .command = Command::help,
     .summary = marked("Show the help of a command"),
     .options = kHelpOptions,
     .arguments = kHelpArguments},
};

// Used by the shell completions: prints the items that a word can be completed to
// (docs/command-line.md).
constexpr Argument kCompleteArguments[] = {
    {"WORD", Kind::choice, &Invocation::items, "", false},
};
constexpr CommandDescription kComplete{.name = "complete",
                                       .command = Command::complete,
                                       .summary = "",
                                       .options = {},
                                       .arguments = kCompleteArguments};

} // namespace

std::vector<std::string> Option::names() const {
    std::vector<std::string> all;
    for (const char letter : letters)
        all.push_back({'-', letter});
    if (!name.empty())
        all.push_back("--" + std::string(name));
    return all;
}

std::string Option::mainName() const {
    return names().back();
}

const CommandDescription& programDescription() {
    return kProgram;
}

std::span<const CommandDescription> commandDescriptions() {
    return kCommands;
}

const CommandDescription* commandNamed(std::string_view name) {
    if (name == kComplete.name)
        return &kComplete;
    const auto found = std::ranges::find(kCommands, name, &CommandDescription::name);
    return found == std::end(kCommands) ? nullptr : &*found;
}

std::vector<std::string> commandNames() {
    std::vector<std::string> names;
    for (const auto& command : kCommands)
        names.emplace_back(command.name);
    return names;
}

std::string joined(const std::vector<std::string>& words, std::string_view between) {
    std::string result;
    for (const auto& word : words)
        result.append(result.empty() ? "" : between).append(word);
    return result;
}

} // namespace vexmoor
