#include "Terminal.h"

#include "base/Path.h"
#include "base/Text.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <sstream>

namespace vexmoor {

void complain(const std::string& sentence) {
    std::cerr << "vexmoor: " << sentence << "\n";
}

namespace {

bool saysYes(const std::string& line) {
    // Translators: the answers to "[y/N]" that say yes, one after the other.
    std::istringstream words(text("y Y yes"));
    for (std::string word; words >> word;)
        if (line == word)
            return true;
    return line == "y" || line == "Y" || line == "yes";
}

} // namespace

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
    // Translators: a question on the terminal, such as "Dissolve? [y/N]".
    std::cerr << question.informative << "\n"
              << text("%1? [y/N]", {question.confirm}) << " " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return {saysYes(line), false};
}

} // namespace vexmoor
