#pragma once

#include "platform/FileManager.h"

#include <string>

namespace vexmoor {

/// A private folder in a Bin ("vexmoor-leaving") with the structure of a Bin. Items pass through it
/// when they are put back or deleted, so that no other program can replace them between the check
/// and the operation. Items found there when a batch begins were left by an interrupted process.
/// Not thread-safe.
class LeavingFolder {
  public:
    static constexpr const char* kName = "vexmoor-leaving";

    /// Opens the folder in that Bin, and creates it with mode 0700 if it is missing.
    static Result<LeavingFolder> open(int bin);

    /// Creates it in advance, while the disk has space.
    static void prepare(int bin);

    /// Removes it if it is empty.
    static void remove(int bin);

    [[nodiscard]] int files() const { return m_files.get(); }
    [[nodiscard]] int info() const { return m_info.get(); }

  private:
    FileDescriptor m_files;
    FileDescriptor m_info;
};

} // namespace vexmoor
