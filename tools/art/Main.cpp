#include "Commands.h"

#include <cstdio>
#include <exception>
#include <iostream>

namespace {

int run(int count, char** arguments) {
    using namespace vexmoor::arttool;
    CLI::App app("Renders Vexmoor's pixel art and its sound to files.", "vexmoor-art");
    app.require_subcommand(1);
    addFrameCommand(app);
    addFramesCommand(app);
    addIconCommand(app);
    addSheetCommand(app);
    addSizzleCommand(app);
    addAppIconCommand(app);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& asked) {
        return app.exit(asked);
    } catch (const CLI::FileError& failure) {
        std::cerr << "vexmoor-art: " << failure.what() << '\n';
        return 1;
    } catch (const CLI::Error& misuse) {
        std::cerr << "vexmoor-art: " << misuse.what() << '\n';
        return 2;
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    try {
        return run(count, arguments);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "vexmoor-art: %s\n", failure.what());
        return 1;
    }
}
