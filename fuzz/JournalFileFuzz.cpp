#include "Property.h"

#include "disposal/JournalFile.h"

#include <unistd.h>

#include <fstream>

using namespace vexmoor;

namespace {

/// A file of this process, in memory where the system has that.
const Path& scratchFile() {
    static const Path file = Path("/dev/shm") / ("vexmoor-fuzz-" + std::to_string(::getpid()));
    return file;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ofstream(scratchFile(), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const auto file = JournalFile::open(scratchFile());
    if (file) {
        const JournalPosition start{file->generation(), 0};
        static_cast<void>(file->endsAt(start));
        if (const auto contents = file->read(start)) {
            std::int64_t end = 0;
            for (const auto& block : contents->blocks) {
                fuzz::require(block.end > end, "blocks follow each other");
                end = block.end;
            }
            fuzz::require(contents->end >= end, "the end is behind the last block");
            fuzz::require(contents->end <= static_cast<std::int64_t>(size), "and in the file");
        }
    }
    ::unlink(scratchFile().c_str());
    return 0;
}
