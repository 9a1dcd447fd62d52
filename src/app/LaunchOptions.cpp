#include "LaunchOptions.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace vexmoor {

namespace {

/// Whether the argument is a URI (a scheme and two slashes) of something other than a file.
bool isForeignUri(const std::string& argument) {
    const auto colon = argument.find("://");
    return colon != std::string::npos && colon > 0 &&
           std::ranges::all_of(argument.substr(0, colon), [](unsigned char c) {
               return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '-' ||
                      c == '.';
           });
}

void addPath(LaunchOptions& options, const std::string& argument, const Path& folder) {
    if (!argument.empty()) // an empty path would mean the current folder
        options.items.push_back(folder / argument);
}

void addItem(LaunchOptions& options, const std::string& argument, const Path& folder) {
    if (const auto path = pathFromFileUri(argument))
        options.items.push_back(*path);
    else if (isForeignUri(argument))
        ++options.others;
    else
        addPath(options, argument, folder);
}

} // namespace

LaunchOptions LaunchOptions::fromArguments(const std::vector<std::string>& arguments,
                                           const Path& folder) {
    LaunchOptions options;
    bool onlyPaths = false;
    bool isSessionId = false;
    for (const auto& argument : arguments) {
        if (std::exchange(isSessionId, false))
            continue;
        if (onlyPaths)
            addPath(options, argument, folder);
        else if (argument == "--")
            onlyPaths = true;
        else if (argument == "--probe")
            options.probe = true;
        else if (argument == "--describe")
            options.describe = true;
        else if (argument == "--version")
            options.version = true;
        else if (argument == "--help" || argument == "-h")
            options.help = true;
        else if (argument == "--background")
            options.background = true;
        else if (argument == "-session") // from a session manager; Qt reads its id
            options.background = isSessionId = true;
        else if (argument.starts_with('-'))
            options.unknown = options.unknown.empty() ? argument : options.unknown;
        else
            addItem(options, argument, folder);
    }
    return options;
}

std::string LaunchOptions::helpText() {
    return text(
        "Usage: vexmoor-desktop [--background] [FILE…]\n"
        "The cauldron on the desktop. Where it runs already, that one gets the files, or opens "
        "its\nwindow, and this one ends.\n\n"
        "  --background  Start without opening the window\n"
        "  --probe       Print what the program sees of the desktop\n"
        "  --describe    Print how it is shown here and why, for 'vexmoor doctor'\n"
        "  --version     Print the version\n"
        "  --help, -h    Print this help\n\n"
        "FILE is fed to the cauldron; file:/// URIs are understood. See also vexmoor(1).\n");
}

} // namespace vexmoor
