#pragma once

#include <string>

namespace vexmoor {

/// Properties of a type of file system.
struct VolumeKind {
    bool isPseudo = false;        ///< its files are views of the kernel, not stored data
    bool keepsRights = true;      ///< false if all folders report the same permissions
    bool hasStableInodes = false; ///< whether a file keeps its inode number across mounts

    /// Takes the file system type of statfs(2).
    static VolumeKind ofType(unsigned long type);
};

// These functions take an open folder (O_PATH suffices) and are thread-safe.

VolumeKind volumeKind(int folder);

/// Returns a string that identifies a file system across mounts: its UUID if available, otherwise
/// properties that usually differ between volumes. Empty if nothing is known.
std::string volumeName(int folder);

} // namespace vexmoor
