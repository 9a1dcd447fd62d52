#pragma once

#include <CLI/CLI.hpp>

namespace vexmoor::arttool {

// Each function adds a subcommand. Failures are thrown as CLI::Error with message and exit code.

/// `frame`: a picture of the pot.
void addFrameCommand(CLI::App& app);
/// `app-icon`: the program's own icon.
void addAppIconCommand(CLI::App& app);
/// `icon`: an achievement's icon.
void addIconCommand(CLI::App& app);
/// `frames`: an animation as numbered pictures.
void addFramesCommand(CLI::App& app);
/// `sheet`: many pictures side by side.
void addSheetCommand(CLI::App& app);
/// `sizzle`: the sound, as a WAV file.
void addSizzleCommand(CLI::App& app);

} // namespace vexmoor::arttool
