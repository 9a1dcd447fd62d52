#include "Terminal.h"

#include "base/Path.h"
#include "base/Text.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

namespace vexmoor {

namespace {

std::string_view environmentVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool showsColours(int descriptor) {
    const auto terminal = environmentVariable("TERM");
    return !terminal.empty() && terminal != "dumb" && environmentVariable("NO_COLOR").empty() &&
           ::isatty(descriptor) != 0;
}

const char* sequenceOf(Colour colour) {
    switch (colour) {
    case Colour::none:
        break;
    case Colour::red:
        return "\x1b[31m";
    case Colour::green:
        return "\x1b[32m";
    case Colour::yellow:
        return "\x1b[33m";
    case Colour::dim:
        return "\x1b[2m";
    }
    return "";
}

bool saysYes(const std::string& line) {
    // Translators: the answers to "[y/N]" that say yes, one after the other.
    std::istringstream words(text("y Y yes"));
    for (std::string word; words >> word;)
        if (line == word)
            return true;
    return line == "y" || line == "Y" || line == "yes";
}

bool isAnsweredWithYes(const std::string& question) {
    // Translators: a question on the terminal, such as "Dissolve? [y/N]".
    std::cerr << text("%1? [y/N]", {question}) << " " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return saysYes(line);
}

} // namespace

std::string coloured(const std::string& text, Colour colour, int descriptor) {
    return colour == Colour::none || !showsColours(descriptor)
               ? text
               : sequenceOf(colour) + text + "\x1b[m";
}

std::optional<std::size_t> columnsOf(int descriptor) {
    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return std::nullopt;
    return size.ws_col;
}

std::string complaint(const std::string& sentence) {
    return coloured("vexmoor:", Colour::red, STDERR_FILENO) + " " + sentence + "\n";
}

void complain(const std::string& sentence) {
    std::cerr << complaint(sentence);
}

bool TerminalDialogs::canAsk() {
    if (::isatty(STDIN_FILENO) == 0)
        m_lackedTerminal = true;
    return !m_lackedTerminal;
}

Answer TerminalDialogs::ask(const Question& question) {
    if (m_assumeYes)
        return {true, false};
    if (!canAsk())
        return {};
    std::cerr << printable(question.message) << "\n";
    std::istringstream items(question.items);
    for (std::string item; std::getline(items, item);)
        std::cerr << "  " << printable(item) << "\n";
    std::cerr << question.informative << "\n";
    return {isAnsweredWithYes(question.confirm), false};
}

bool TerminalDialogs::confirms(const std::string& question) {
    return m_assumeYes || (canAsk() && isAnsweredWithYes(question));
}

} // namespace vexmoor
