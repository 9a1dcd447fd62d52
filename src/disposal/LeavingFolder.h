#pragma once

#include "platform/FileManager.h"

#include <string>

namespace vexmoor {

/// A folder of a Bin's own ("vexmoor-leaving"), shaped like a Bin, through which all that is put
/// back or deleted leaves: there no other program swaps an item between the look at it and the act.
/// What is found there when a batch begins was left by a process that ended. One thread.
class LeavingFolder {
  public:
    static constexpr const char* kName = "vexmoor-leaving";

    /// The one in that Bin's folder, made with rights 0700 where it is missing.
    static Result<LeavingFolder> open(int bin);

    /// Makes it while there is room on the disk, so that a full one is no obstacle later.
    static void prepare(int bin);

    /// Removes it where it is empty.
    static void remove(int bin);

    [[nodiscard]] int files() const { return m_files.get(); }
    [[nodiscard]] int info() const { return m_info.get(); }

  private:
    FileDescriptor m_files;
    FileDescriptor m_info;
};

} // namespace vexmoor
