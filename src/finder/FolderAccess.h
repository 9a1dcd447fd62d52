#pragma once

#include "base/Executor.h"
#include "base/Path.h"
#include "base/UserDefaults.h"

#include <QString>

#include <array>
#include <functional>
#include <map>

// Whether the user's folders are readable. Systems that protect them ask the user on access.

namespace vexmoor::FolderAccess {

enum class Folder { desktop, documents, downloads };
inline constexpr std::array kAllFolders{Folder::desktop, Folder::documents, Folder::downloads};
inline constexpr const char* kAskedKey = "folderAccessAsked";

/// Returns "desktop", "documents" or "downloads".
[[nodiscard]] const char* toRawValue(Folder folder);

/// Returns the user's folder according to the XDG user directories.
[[nodiscard]] Path pathOf(Folder folder);

using Readable = std::map<Folder, bool>;

/// Lists the folders one after another on `background` and calls `completion` once on `main`.
/// Records in the defaults that the folders were probed.
void probe(UserDefaults& defaults, Executor& background, Executor& main,
           std::function<void(const Readable&)> completion);

/// Shows the folder's properties with its permissions in the file manager. Opens its parent folder
/// if no file manager supports that.
void openSettings(Folder folder);

} // namespace vexmoor::FolderAccess
