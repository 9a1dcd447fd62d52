#include "integration/Integrations.h"

#include <iostream>
#include <map>
#include <string>

namespace {

using namespace vexmoor;

/// Replaced by the folder of the programs on installation.
const Path kPrograms = "/BINDIR";

/// Removes the mark of "vexmoor integrate", which does not manage these files, and inserts the
/// placeholder for the folder of the programs.
std::string forAllUsers(std::string content) {
    if (content.starts_with('#'))
        content.erase(0, content.find('\n') + 1);
    for (auto place = content.find(kPrograms); place != std::string::npos;
         place = content.find(kPrograms))
        content.replace(place, kPrograms.native().size(), "{bindir}");
    return content;
}

/// Adds TryExec, because the autostart entry remains until the package is purged.
std::string onlyWhereInstalled(std::string content) {
    return content + "TryExec={bindir}/vexmoor-desktop\n";
}

} // namespace

/// Prints the system-wide file of one kind: vexmoor-menus nemo|kio|actions|autostart.
int main(int argc, char** argv) {
    const IntegrationContext context{
        {}, kPrograms / "vexmoor", kPrograms / "vexmoor-desktop", {}, {}};
    const std::map<std::string, std::string> files = {
        {"nemo", forAllUsers(menuEntry(MenuEntryKind::nemoAction, context)->content)},
        {"kio", forAllUsers(menuEntry(MenuEntryKind::kioServiceMenu, context)->content)},
        {"actions", forAllUsers(menuEntry(MenuEntryKind::desktopAction, context)->content)},
        {"autostart", onlyWhereInstalled(forAllUsers(autostart(context).content))}};
    const auto file = argc == 2 ? files.find(argv[1]) : files.end();
    if (file == files.end()) {
        std::cerr << "usage: vexmoor-menus nemo|kio|actions|autostart\n";
        return 2;
    }
    std::cout << file->second << std::flush;
    return std::cout ? 0 : 1;
}
