#include "Commands.h"
#include "Output.h"

#include "art/CauldronArt.h"

#include <memory>

namespace vexmoor::arttool {

void addFrameCommand(CLI::App& app) {
    struct Arguments : Options {
        std::string kind;
        int tick = 0;
    };
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand("frame", "Write one picture of the whole scene");
    command->add_option("kind", arguments->kind, "still or idle")
        ->required()
        ->check(CLI::IsMember({"still", "idle"}));
    command->add_option("--tick", arguments->tick, "Which idle frame (eighths of a second)")
        ->type_name("N");
    addOptions(*command, *arguments);
    command->callback([arguments] {
        const PixelCanvas scene = CauldronArt::idle(arguments->tick, arguments->kind == "still", 0,
                                                    Skin::named(arguments->skin));
        writePng(scene.nsImage(arguments->scale), arguments->output);
    });
}

} // namespace vexmoor::arttool
