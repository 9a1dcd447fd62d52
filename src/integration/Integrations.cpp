#include "Integrations.h"

#include "integration/Quoting.h"
#include "integration/ThunarActions.h"

namespace vexmoor {

namespace {

constexpr const char* kTitle = "Feed to Vexmoor";
constexpr const char* kIcon = "org.vexmoor.Vexmoor";
constexpr const char* kComment = "Throw the selected items into the cauldron";

std::string mark() {
    return "# " + std::string(kIntegrationMark) + ", which replaces and removes it.\n";
}

/// Nautilus and Caja name the selection in a variable, a URI a line, so that no name is mistaken
/// for two or for an option; older ones only as arguments.
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

/// Nemo puts paths into the command without quoting them in all its versions; URIs between double
/// quotes are safe in all of them.
std::string nemoAction(const Path& program) {
    return mark() + "[Nemo Action]\nActive=true\nName=" + kTitle + "\nComment=" + kComment +
           "\nExec=" + keyFileEscaped(percentDoubled(shellQuoted(program.native()))) +
           " feed --from-menu -- %U\nIcon-Name=" + kIcon +
           "\nSelection=notnone\nExtensions=any;\nQuote=double\n";
}

std::string thunarAction(const Path& program) {
    const auto command = percentDoubled(shellQuoted(program.native())) + " feed --from-menu -- %F";
    return std::string("<action>\n\t<icon>") + kIcon + "</icon>\n\t<name>" + kTitle +
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
           kTitle + "\nIcon=" + kIcon + "\nExec=" + desktopExecQuoted(program.native()) +
           " feed --from-menu -- %F\n";
}

/// The file managers' own standard for actions (DES-EMA).
std::string desktopAction(const Path& program) {
    return mark() + "[Desktop Entry]\nType=Action\nName=" + kTitle + "\nTooltip=" + kComment +
           "\nIcon=" + kIcon +
           "\nProfiles=feed;\n\n[X-Action-Profile feed]\nMimeTypes=all/all;\nSchemes=file;\n"
           "SelectionCount=>0\nExec=" +
           keyFileEscaped(percentDoubled(shellQuoted(program.native()))) +
           " feed --from-menu -- %F\n";
}

std::string autostart(const Path& program) {
    return mark() +
           "[Desktop Entry]\nType=Application\nName=Vexmoor\nComment=Throws files away with a "
           "little ceremony\nIcon=" +
           kIcon + "\nExec=" + desktopExecQuoted(program.native()) +
           " --background\nTerminal=false\n";
}

} // namespace

std::vector<Integration> integrations(const UserDirectories& directories, const Path& program,
                                      const std::optional<Path>& desktopProgram) {
    using Kind = Integration::Kind;
    const Path& data = directories.dataHome;
    const Path& config = directories.configHome;
    std::vector<Integration> all = {
        {"nautilus", "Nautilus script", data / "nautilus/scripts" / kTitle,
         script(program, "NAUTILUS_SCRIPT_SELECTED_URIS"), Kind::ownProgramFile},
        {"caja", "Caja script", config / "caja/scripts" / kTitle,
         script(program, "CAJA_SCRIPT_SELECTED_URIS"), Kind::ownProgramFile},
        {"nemo", "Nemo action", data / "nemo/actions/vexmoor-feed.nemo_action",
         nemoAction(program)},
        {"thunar", "Thunar custom action", config / "Thunar/uca.xml", thunarAction(program),
         Kind::thunarAction},
        {"kio", "Dolphin service menu", data / "kio/servicemenus/vexmoor-feed.desktop",
         serviceMenu(program), Kind::ownProgramFile}, // elsewhere than in /usr it must be one
        {"pcmanfm", "PCManFM action", data / "file-manager/actions/vexmoor-feed.desktop",
         desktopAction(program)}};
    all.push_back({"autostart", "Start with the session",
                   config / "autostart/org.vexmoor.Vexmoor.desktop",
                   desktopProgram ? autostart(*desktopProgram) : "", Kind::ownFile,
                   desktopProgram.has_value()});
    return all;
}

} // namespace vexmoor
