#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// Returns the candidate closest to a mistyped word: the word is its prefix, or few edits away
/// (insertion, deletion, substitution, transposition; case is ignored). Empty if none is close
/// enough.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

/// Returns " Did you mean feed?", to append to an error message; empty without a suggestion.
std::string didYouMean(const std::string& suggestion);

} // namespace vexmoor
