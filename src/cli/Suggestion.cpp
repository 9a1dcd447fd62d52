#include "Suggestion.h"

#include "base/LowerCase.h"
#include "base/Text.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr std::size_t kLongestWord = 64; ///< longer words get no suggestion
constexpr std::size_t kBeginning = 2;    ///< minimum length of a prefix

/// Returns the edit distance of two words; transposing two neighbours is one edit.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        last[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::vector<std::size_t> row(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool isSame = a[i - 1] == b[j - 1];
            row[j] = std::min({row[j - 1] + 1, last[j] + 1, last[j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast = std::move(last);
        last = std::move(row);
    }
    return last.back();
}

/// Returns the maximum distance for a suggestion: one edit per three letters of the longer word.
std::size_t limit(const std::string& a, const std::string& b) {
    return std::max<std::size_t>(1, std::max(a.size(), b.size()) / 3);
}

} // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& candidates) {
    if (word.size() < 2 || word.size() > kLongestWord)
        return {};
    const auto typed = lowercased(word);
    const std::string* best = nullptr;
    std::size_t fewest = 0;
    for (const auto& candidate : candidates) {
        const auto name = lowercased(candidate);
        const bool isBeginning = typed.size() >= kBeginning && name.starts_with(typed);
        const auto edits = isBeginning ? 0 : distance(typed, name);
        if (edits <= limit(typed, name) && edits < typed.size() &&
            (best == nullptr || edits < fewest)) {
            best = &candidate;
            fewest = edits;
        }
    }
    return best != nullptr ? *best : std::string();
}

std::string didYouMean(const std::string& suggestion) {
    return suggestion.empty() ? "" : " " + text("Did you mean %1?", {suggestion});
}

} // namespace vexmoor
