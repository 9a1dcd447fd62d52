#pragma once

#include <QImage>

#include <filesystem>
#include <vector>

namespace vexmoor::arttool {

/// Writes the pictures as an animation that repeats, each shown for so many hundredths of a second.
/// ImageMagick's convert does the encoding; throws CLI::FileError where that is missing or fails.
void writeGif(const std::vector<QImage>& pictures, int hundredths,
              const std::filesystem::path& output);

} // namespace vexmoor::arttool
