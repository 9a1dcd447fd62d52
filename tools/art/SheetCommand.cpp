#include "Commands.h"
#include "Gif.h"
#include "Output.h"
#include "Sheet.h"
#include "Show.h"

#include "art/AchievementArt.h"
#include "art/CauldronArt.h"

#include <memory>

namespace vexmoor::arttool {
namespace {

constexpr int kIdleHundredths = 12; ///< about 8 frames per second
constexpr int kShowHundredths = 4;  ///< about 24

std::vector<QImage> skinPictures(int scale) {
    std::vector<QImage> pictures;
    for (const Skin& skin : Skin::all())
        pictures.push_back(CauldronArt::idle(0, true, 0, skin).crop(0, 20, 34, 34).nsImage(scale));
    return pictures;
}

std::vector<QImage> iconPictures(int scale) {
    std::vector<QImage> pictures;
    for (const AchievementIcon& icon : AchievementArt::icons())
        pictures.push_back(AchievementArt::render(icon.id, scale).bitmapRep());
    pictures.push_back(AchievementArt::render("locked", scale).bitmapRep());
    return pictures;
}

std::vector<QImage> showPictures(const Options& options, const std::string& show, int every) {
    std::vector<QImage> pictures;
    for (int frame = 0; frame < frameCount(show); frame += every)
        pictures.push_back(
            showFrame(show, frame, Skin::named(options.skin)).nsImage(options.scale));
    return pictures;
}

std::vector<QImage> picturesOf(const std::string& kind, const Options& options, int every) {
    if (kind == "skins")
        return skinPictures(options.scale);
    if (kind == "icons")
        return iconPictures(options.scale);
    return showPictures(options, kind, every);
}

} // namespace

void addSheetCommand(CLI::App& app) {
    struct Arguments : Options {
        std::string kind;
        int columns = 5;
        int every = 1;
        bool clear = false;
        bool gif = false;
    };
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        app.add_subcommand("sheet", "Write many pictures side by side, on light and on dark");
    command->add_option("kind", arguments->kind, "skins, icons, idle, burn or swarm")
        ->required()
        ->check(CLI::IsMember({"skins", "icons", "idle", "burn", "swarm"}));
    command->add_option("--columns", arguments->columns, "Pictures in a row (default: 5)")
        ->type_name("N")
        ->check(CLI::Range(1, 100));
    command->add_option("--every", arguments->every, "Take each N-th frame (default: 1)")
        ->type_name("N")
        ->check(CLI::Range(1, 100));
    command->add_flag("--clear", arguments->clear, "Once, on a transparent ground");
    command->add_flag("--gif", arguments->gif, "An animation instead: idle, burn or swarm");
    addOptions(*command, *arguments);
    command->callback([arguments] {
        const std::vector<QImage> pictures =
            picturesOf(arguments->kind, *arguments, arguments->every);
        const bool isStill = arguments->kind == "skins" || arguments->kind == "icons";
        if (arguments->gif && isStill)
            throw CLI::ValidationError("--gif", "applies only to idle, burn and swarm");
        if (arguments->gif) {
            const int hundredths = arguments->kind == "idle" ? kIdleHundredths : kShowHundredths;
            writeGif(pictures, hundredths * arguments->every, arguments->output);
            return;
        }
        const std::vector<QColor> grounds =
            arguments->clear ? std::vector<QColor>{Qt::transparent} : windowGrounds();
        writePng(sheetOf(pictures, arguments->columns, grounds), arguments->output);
    });
}

} // namespace vexmoor::arttool
