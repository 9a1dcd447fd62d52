#include "Commands.h"
#include "Output.h"
#include "Show.h"

#include <cstdio>
#include <memory>

namespace vexmoor::arttool {

void addFramesCommand(CLI::App& app) {
    struct Arguments : Options {
        std::string show;
    };
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        app.add_subcommand("frames", "Write an animation's frames into a folder, 000.png and on");
    command->add_option("show", arguments->show, "idle, burn or swarm")
        ->required()
        ->check(CLI::IsMember(showNames()));
    addOptions(*command, *arguments);
    command->callback([arguments] {
        std::error_code error;
        std::filesystem::create_directories(arguments->output, error);
        if (error)
            throw CLI::FileError("Cannot create the folder " + arguments->output.string() + ": " +
                                     error.message() + ".",
                                 1);
        for (int frame = 0; frame < frameCount(arguments->show); ++frame) {
            char name[16];
            std::snprintf(name, sizeof name, "%03d.png", frame);
            writePng(showFrame(arguments->show, frame, Skin::named(arguments->skin))
                         .nsImage(arguments->scale),
                     arguments->output / name);
        }
    });
}

} // namespace vexmoor::arttool
