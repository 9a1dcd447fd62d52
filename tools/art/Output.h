#pragma once

#include "skins/Skin.h"

#include <QImage>

#include <CLI/CLI.hpp>

#include <filesystem>
#include <string>

namespace vexmoor::arttool {

/// What every subcommand asks for.
struct OutputOptions {
    int scale = 4;
    std::filesystem::path output;
};

/// What those that show a pot ask for.
struct Options : OutputOptions {
    std::string skin = "iron";
};

/// Adds --scale (1 to 64) and -o.
void addOutputOptions(CLI::App& command, OutputOptions& options);

/// Adds --skin (checked against the known ids) to these.
void addOptions(CLI::App& command, Options& options);

/// Writes a PNG; throws CLI::FileError with a sentence when that fails.
void writePng(const QImage& image, const std::filesystem::path& path);

} // namespace vexmoor::arttool
