#pragma once

#include <QImage>

#include <filesystem>
#include <vector>

namespace vexmoor::arttool {

/// Writes a repeating animation with this frame duration in hundredths of a second. Uses
/// ImageMagick's convert; throws CLI::FileError if it is missing or fails.
void writeGif(const std::vector<QImage>& pictures, int hundredths,
              const std::filesystem::path& output);

} // namespace vexmoor::arttool
