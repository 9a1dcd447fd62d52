#include "Commands.h"

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Session.h"

#include <iostream>
#include <set>

namespace vexmoor {

namespace {

constexpr std::size_t kMostCandidates = 200;

/// True if a name fits on one line and cannot be mistaken for an option.
bool isPlain(const std::string& name) {
    return isValidUtf8(name) && printable(name) == name && !name.starts_with('-');
}

/// Returns the completion of the word: the item's name or, if the word has a slash, its path; the
/// item's id if that is not plain.
std::string candidateFor(const Sacrifice& item, const std::string& word) {
    const auto& path = item.original->native();
    const auto name = word.find('/') == std::string::npos ? lastComponent(path) : path;
    return isPlain(name) ? name : item.id.toString().substr(0, BinnedItems::kShortId);
}

/// Returns the item's size and folder, preceded by its name if the candidate is an id.
std::string meaningOf(const Sacrifice& item, const std::string& candidate) {
    const auto name = lastComponent(*item.original);
    const auto shown = candidate.ends_with(name) ? "" : printable(displayText(name)) + ", ";
    return shown + sizeText(item.bytes) + ", " +
           text("from %1", {printable(Path(*item.original).parent_path().native())});
}

} // namespace

/// Prints a line for each candidate: the word, a tab, the description. Reports no errors: the shell
/// would show them in the middle of the command line.
int runComplete(const Invocation& invocation) {
    const std::string word = invocation.items.empty() ? "" : invocation.items.front();
    const auto session = Session::openForLooking();
    if (!session)
        return kRefused;
    const bool isPath = word.find('/') != std::string::npos;
    const auto items = (*session)->binnedItems().matching(
        [&](const std::string& name) { return isPath || name.starts_with(word); }, kMostCandidates);
    std::set<std::string> offered;
    for (const auto& item : items) {
        const auto candidate = candidateFor(item, word);
        if (candidate.starts_with(word) && offered.insert(candidate).second)
            std::cout << candidate << "\t" << meaningOf(item, candidate) << "\n";
    }
    return kAllDone;
}

} // namespace vexmoor
