#include "base/Text.h"
#include "base/UserLocale.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <algorithm>
#include <iostream>

namespace {

int run(const vexmoor::Invocation& invocation) {
    using Command = vexmoor::Invocation::Command;
    switch (invocation.command) {
    case Command::open:
    case Command::probe:
    case Command::help: // printed by the parser
        return vexmoor::runDesktop(invocation);
    case Command::feed:
    case Command::putBack:
    case Command::erase:
        return vexmoor::runBatch(invocation);
    case Command::complete:
        return vexmoor::runComplete(invocation);
    case Command::history:
        return vexmoor::runHistory(invocation);
    case Command::stats:
        return vexmoor::runStats(invocation);
    case Command::settings:
        return vexmoor::runSettings(invocation);
    case Command::integrate:
        return vexmoor::runIntegrate(invocation);
    case Command::doctor:
        return vexmoor::runDoctor(invocation);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    vexmoor::useUserLocale();
    const auto parsed = vexmoor::parseCommandLine(argc, argv);
    std::cout << parsed.output;
    std::cerr << parsed.error;
    const int status = parsed.invocation ? run(*parsed.invocation) : parsed.status;
    if (std::cout.flush())
        return status;
    vexmoor::complain(vexmoor::text("Not all of the output could be written."));
    return std::max(status, vexmoor::kSomeFailed);
}
