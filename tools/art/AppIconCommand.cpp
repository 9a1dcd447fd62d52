#include "AppIcon.h"
#include "Commands.h"
#include "Output.h"

#include <QFile>

#include <memory>

namespace vexmoor::arttool {
namespace {

void writeSvg(const std::filesystem::path& path) {
    QFile file(QFile::decodeName(path.c_str()));
    const QByteArray svg = appIconSvg();
    if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size() || !file.flush())
        throw CLI::FileError(
            "Cannot write " + path.string() + ": " + file.errorString().toStdString() + ".", 1);
}

} // namespace

void addAppIconCommand(CLI::App& app) {
    struct Arguments {
        int side = 128;
        std::filesystem::path output;
    };
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand("app-icon", "Write the program's own icon, PNG or SVG");
    command->add_option("--side", arguments->side, "Pixels of a PNG (default: 128)")
        ->type_name("N")
        ->check(CLI::Range(16, 1024));
    command
        ->add_option("-o,--output", arguments->output,
                     "Where to write; the name ends in .png or .svg")
        ->type_name("PATH")
        ->required();
    command->callback([arguments] {
        if (arguments->output.extension() == ".svg")
            writeSvg(arguments->output);
        else
            writePng(appIcon(arguments->side).bitmapRep(), arguments->output);
    });
}

} // namespace vexmoor::arttool
