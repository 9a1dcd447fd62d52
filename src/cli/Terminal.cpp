#include "Terminal.h"

#include "base/ByteCount.h"
#include "base/Path.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <sstream>

namespace vexmoor {

std::string counted(std::int64_t count, const std::string& noun) {
    return countText(count) + " " + noun + (count == 1 ? "" : "s");
}

void complain(const std::string& sentence) {
    std::cerr << "vexmoor: " << sentence << "\n";
}

Answer TerminalDialogs::ask(const Question& question) {
    if (m_assumeYes)
        return {true, false};
    if (::isatty(STDIN_FILENO) == 0) {
        m_lackedTerminal = true;
        return {};
    }
    std::cerr << printable(question.message) << "\n";
    std::istringstream items(question.items);
    for (std::string item; std::getline(items, item);)
        std::cerr << "  " << printable(item) << "\n";
    std::cerr << question.informative << "\n" << question.confirm << "? [y/N] " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return {line == "y" || line == "Y" || line == "yes", false};
}

} // namespace vexmoor
