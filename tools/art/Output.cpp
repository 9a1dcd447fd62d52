#include "Output.h"

#include <QFile>
#include <QImageWriter>

#include <vector>

namespace vexmoor::arttool {

void addOutputOptions(CLI::App& command, OutputOptions& options) {
    command.add_option("--scale", options.scale, "Output pixels a canvas pixel (default: 4)")
        ->type_name("N")
        ->check(CLI::Range(1, 64));
    command.add_option("-o,--output", options.output, "Where to write")
        ->type_name("PATH")
        ->required();
}

void addOptions(CLI::App& command, Options& options) {
    const auto isSkin = [](const std::string& id) {
        if (Skin::named(id).id == id)
            return std::string();
        std::string known;
        for (const Skin& skin : Skin::all())
            known += " " + std::string(skin.id);
        return "There is no skin \"" + id + "\". The skins are:" + known + ".";
    };
    command.add_option("--skin", options.skin, "Id of the skin (default: iron)")
        ->type_name("ID")
        ->check(CLI::Validator(isSkin, ""));
    addOutputOptions(command, options);
}

void writePng(const QImage& image, const std::filesystem::path& path) {
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly))
        throw CLI::FileError(
            "Cannot write " + path.string() + ": " + file.errorString().toStdString() + ".", 1);
    QImageWriter writer(&file, "png");
    if (!writer.write(image) || !file.flush())
        throw CLI::FileError(
            "Cannot write " + path.string() + ": " + writer.errorString().toStdString() + ".", 1);
}

} // namespace vexmoor::arttool
