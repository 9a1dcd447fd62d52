#include "Commands.h"

#include "sound/SizzleRenderer.h"

#include <filesystem>
#include <fstream>
#include <memory>

namespace vexmoor::arttool {

void addSizzleCommand(CLI::App& app) {
    auto output = std::make_shared<std::filesystem::path>();
    CLI::App* command = app.add_subcommand("sizzle", "Write the sizzle as a WAV file");
    command->add_option("-o,--output", *output, "Where to write")->type_name("PATH")->required();
    command->callback([output] {
        const std::vector<std::uint8_t> wav = SizzleRenderer::render();
        std::ofstream file(*output, std::ios::binary);
        file.write(reinterpret_cast<const char*>(wav.data()),
                   static_cast<std::streamsize>(wav.size()));
        file.close();
        if (!file)
            throw CLI::FileError("Cannot write " + output->string() + ".", 1);
    });
}

} // namespace vexmoor::arttool
