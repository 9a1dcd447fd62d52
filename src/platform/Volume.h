#pragma once

#include <string>

namespace vexmoor {

/// What a kind of file system keeps of a file.
struct VolumeKind {
    bool isPseudo = false;        ///< its files are views of the kernel, not stored by anybody
    bool keepsRights = true;      ///< false where all folders show the same rights
    bool hasStableInodes = false; ///< whether a file has the same inode number at the next mount

    /// Of the file system's type as statfs(2) has it.
    static VolumeKind ofType(unsigned long type);
};

// Both act on an open folder, which may be one that only names it. Any thread.

VolumeKind volumeKind(int folder);

/// A text that is the same for a file system whenever it is mounted, and another for another one:
/// its UUID where it can be had, else what tells volumes apart mostly. Empty where nothing is
/// known.
std::string volumeName(int folder);

} // namespace vexmoor
