#pragma once

#include "skins/Skin.h"

#include <QImage>

#include <CLI/CLI.hpp>

#include <filesystem>
#include <string>

namespace vexmoor::arttool {

/// Options of every subcommand.
struct OutputOptions {
    int scale = 4;
    std::filesystem::path output;
};

/// Options of subcommands that draw a pot.
struct Options : OutputOptions {
    std::string skin = "iron";
};

/// Adds --scale (1 to 64) and -o.
void addOutputOptions(CLI::App& command, OutputOptions& options);

/// Also adds --skin, validated against the known ids.
void addOptions(CLI::App& command, Options& options);

/// Writes a PNG file. Throws CLI::FileError with a message on failure.
void writePng(const QImage& image, const std::filesystem::path& path);

} // namespace vexmoor::arttool
