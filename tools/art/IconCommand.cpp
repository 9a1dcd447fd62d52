#include "Commands.h"
#include "Output.h"

#include "art/AchievementArt.h"

#include <memory>

namespace vexmoor::arttool {
namespace {

std::string checkedIcon(const std::string& id) {
    std::string known = " locked";
    for (const AchievementIcon& icon : AchievementArt::icons())
        known += " " + std::string(icon.id);
    const bool isKnown = (known + " ").find(" " + id + " ") != std::string::npos;
    return isKnown ? std::string()
                   : "There is no icon \"" + id + "\". The icons are:" + known + ".";
}

} // namespace

void addIconCommand(CLI::App& app) {
    struct Arguments : OutputOptions {
        std::string id;
    };
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand("icon", "Write an achievement's icon");
    command->add_option("id", arguments->id, "Of the achievement, or \"locked\"")
        ->required()
        ->check(CLI::Validator(checkedIcon, ""));
    addOutputOptions(*command, *arguments);
    command->callback([arguments] {
        writePng(AchievementArt::render(arguments->id, arguments->scale).bitmapRep(),
                 arguments->output);
    });
}

} // namespace vexmoor::arttool
