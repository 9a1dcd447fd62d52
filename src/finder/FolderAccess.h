#pragma once

#include "base/Executor.h"
#include "base/Path.h"
#include "base/UserDefaults.h"

#include <QString>

#include <array>
#include <functional>
#include <map>

// Whether the user's folders can be read. On systems that protect them, looking makes the system
// ask.

namespace vexmoor::FolderAccess {

enum class Folder { desktop, documents, downloads };
inline constexpr std::array kAllFolders{Folder::desktop, Folder::documents, Folder::downloads};
inline constexpr const char* kAskedKey = "folderAccessAsked";

/// "desktop", "documents", "downloads".
[[nodiscard]] const char* toRawValue(Folder folder);

/// The folder of the user's own, as the XDG user directories name it.
[[nodiscard]] Path pathOf(Folder folder);

using Readable = std::map<Folder, bool>;

/// Lists the folders one after another on `background` and answers on `main`, once. Records in the
/// defaults that it looked.
void probe(UserDefaults& defaults, Executor& background, Executor& main,
           std::function<void(const Readable&)> completion);

/// Shows the folder's properties, with its permissions, in the file manager. Where no file manager
/// answers, the folder that holds it is opened instead.
void openSettings(Folder folder);

} // namespace vexmoor::FolderAccess
