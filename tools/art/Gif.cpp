#include "Gif.h"

#include "Output.h"

#include <CLI/CLI.hpp>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdio>

namespace vexmoor::arttool {

void writeGif(const std::vector<QImage>& pictures, int hundredths,
              const std::filesystem::path& output) {
    const QTemporaryDir folder;
    QStringList arguments{"-dispose", "previous", "-delay", QString::number(hundredths)};
    for (std::size_t frame = 0; frame < pictures.size(); ++frame) {
        char name[32];
        std::snprintf(name, sizeof name, "%03zu.png", frame);
        const auto file = std::filesystem::path(folder.path().toStdString()) / name;
        writePng(pictures[frame], file);
        arguments << QString::fromStdString(file.string());
    }
    arguments << "-loop"
              << "0"
              << "gif:" + QString::fromStdString(output.string());
    if (QProcess::execute("convert", arguments) != 0)
        throw CLI::FileError(
            "Cannot write " + output.string() + ": ImageMagick's convert is required.", 1);
}

} // namespace vexmoor::arttool
