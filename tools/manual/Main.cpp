#include "Manual.h"

#include <iostream>
#include <map>

/// Prints a completion or the manual page: vexmoor-manual bash|zsh|fish|man.
int main(int argc, char** argv) {
    using namespace vexmoor;
    const std::map<std::string, std::string (*)()> kinds = {{"bash", bashCompletion},
                                                            {"zsh", zshCompletion},
                                                            {"fish", fishCompletion},
                                                            {"man", manualPage}};
    const auto kind = argc == 2 ? kinds.find(argv[1]) : kinds.end();
    if (kind == kinds.end()) {
        std::cerr << "usage: vexmoor-manual bash|zsh|fish|man\n";
        return 2;
    }
    std::cout << kind->second() << std::flush;
    return std::cout ? 0 : 1;
}
