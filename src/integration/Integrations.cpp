#include "Integrations.h"

#include "integration/Programs.h"
#include "integration/Quoting.h"
#include "integration/ThunarActions.h"

#include <algorithm>
#include <cstdlib>

namespace vexmoor {

namespace {

constexpr const char* kIcon = "org.vexmoor.Vexmoor";
constexpr const char* kComment = "Throw the selected items into the cauldron";

std::string mark() {
    return "# " + std::string(kIntegrationMark) + ", which replaces and removes it.\n";
}

/// Nautilus and Caja pass the selection in a variable with one URI per line, so that no name is
/// split or taken as an option; older versions pass it only as arguments.
std::string script(const Path& program, const std::string& variable) {
    return "#!/bin/sh\n" + mark() + "if [ -n \"$" + variable +
           "\" ]; then\n"
           "    set -f\n"
           "    IFS='\n"
           "'\n"
           "    set -- $" +
           variable +
           "\n"
           "fi\n"
           "exec " +
           shellQuoted(program.native()) + " feed --from-menu -- \"$@\"\n";
}

/// Some versions of Nemo insert paths into the command without quoting; URIs in double quotes are
/// safe in all versions.
std::string nemoAction(const Path& program) {
    return mark() + "[Nemo Action]\nActive=true\nName=" + kMenuTitle + "\nComment=" + kComment +
           "\nExec=" + keyFileEscaped(percentDoubled(shellQuoted(program.native()))) +
           " feed --from-menu -- %U\nIcon-Name=" + kIcon +
           "\nSelection=notnone\nExtensions=any;\nQuote=double\n";
}

std::string thunarAction(const Path& program) {
    const auto command = percentDoubled(shellQuoted(program.native())) + " feed --from-menu -- %F";
    return std::string("<action>\n\t<icon>") + kIcon + "</icon>\n\t<name>" + kMenuTitle +
           "</name>\n\t<submenu></submenu>\n\t<unique-id>" + kThunarActionId +
           "</unique-id>\n\t<command>" + xmlEscaped(command) + "</command>\n\t<description>" +
           kComment +
           "</description>\n\t<range></range>\n\t<patterns>*</patterns>\n\t<directories/>\n"
           "\t<audio-files/>\n\t<image-files/>\n\t<other-files/>\n\t<text-files/>\n"
           "\t<video-files/>\n</action>";
}

std::string serviceMenu(const Path& program) {
    return mark() +
           "[Desktop Entry]\nType=Service\nX-KDE-ServiceTypes=KonqPopupMenu/Plugin\n"
           "MimeType=all/all;\nX-KDE-Protocols=file\nX-KDE-Priority=TopLevel\n"
           "Actions=feedToVexmoor;\n\n[Desktop Action feedToVexmoor]\nName=" +
           kMenuTitle + "\nIcon=" + kIcon + "\nExec=" + desktopExecQuoted(program.native()) +
           " feed --from-menu -- %F\n";
}

/// The file managers' common standard for actions (DES-EMA).
std::string desktopAction(const Path& program) {
    return mark() + "[Desktop Entry]\nType=Action\nName=" + kMenuTitle + "\nTooltip=" + kComment +
           "\nIcon=" + kIcon +
           "\nProfiles=feed;\n\n[X-Action-Profile feed]\nMimeTypes=all/all;\nSchemes=file;\n"
           "SelectionCount=>0\nExec=" +
           keyFileEscaped(percentDoubled(shellQuoted(program.native()))) +
           " feed --from-menu -- %F\n";
}

std::string autostartEntry(const Path& program) {
    return mark() +
           "[Desktop Entry]\nType=Application\nName=Vexmoor\nComment=Throws files away with a "
           "little ceremony\nIcon=" +
           kIcon + "\nExec=" + desktopExecQuoted(program.native()) +
           " --background\nTerminal=false\n";
}

} // namespace

IntegrationContext IntegrationContext::ofProcess() {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    };
    return {UserDirectories::ofProcess(), commandLineProgram(), vexmoor::desktopProgram(),
            variable("PATH"), variable("XDG_CONFIG_DIRS")};
}

bool IntegrationContext::canBeWritten() const {
    const auto can = [](const Path& file) {
        return file.is_absolute() && isValidUtf8(file.native()) &&
               std::ranges::none_of(file.native(), [](char c) {
                   return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
               });
    };
    return can(program) && (!desktopProgram || can(*desktopProgram));
}

std::optional<Integration> menuEntry(MenuEntryKind kind, const IntegrationContext& context) {
    using Kind = Integration::Kind;
    const Path& data = context.directories.dataHome;
    const Path& config = context.directories.configHome;
    const Path& program = context.program;
    switch (kind) {
    case MenuEntryKind::nautilusScript:
        return Integration{data / "nautilus/scripts" / kMenuTitle,
                           script(program, "NAUTILUS_SCRIPT_SELECTED_URIS"), Kind::ownProgramFile};
    case MenuEntryKind::cajaScript:
        return Integration{config / "caja/scripts" / kMenuTitle,
                           script(program, "CAJA_SCRIPT_SELECTED_URIS"), Kind::ownProgramFile};
    case MenuEntryKind::nemoAction:
        return Integration{data / "nemo/actions" / kNemoActionFile, nemoAction(program)};
    case MenuEntryKind::thunarAction:
        return Integration{config / "Thunar/uca.xml", thunarAction(program), Kind::thunarAction};
    case MenuEntryKind::kioServiceMenu: // outside /usr the file must be executable
        return Integration{data / "kio/servicemenus/vexmoor-feed.desktop", serviceMenu(program),
                           Kind::ownProgramFile};
    case MenuEntryKind::desktopAction:
        return Integration{data / "file-manager/actions/vexmoor-feed.desktop",
                           desktopAction(program)};
    case MenuEntryKind::none:
        break;
    }
    return std::nullopt;
}

Integration nemoScript(const IntegrationContext& context) {
    return {context.directories.dataHome / "nemo/scripts" / kMenuTitle,
            script(context.program, "NEMO_SCRIPT_SELECTED_URIS"),
            Integration::Kind::ownProgramFile};
}

Integration autostart(const IntegrationContext& context) {
    const auto& program = context.desktopProgram;
    return {context.directories.configHome / "autostart/org.vexmoor.Vexmoor.desktop",
            program ? autostartEntry(*program) : "", Integration::Kind::ownFile,
            program.has_value()};
}

} // namespace vexmoor
