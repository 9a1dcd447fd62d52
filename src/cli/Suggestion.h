#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// The candidate that a mistyped word most probably means: it is the beginning of it, or few edits
/// away (letters put in, left out, changed or swapped; case does not count). Empty if none is near.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

/// "Did you mean feed?" with a space before it, to follow a complaint; empty without a suggestion.
std::string didYouMean(const std::string& suggestion);

} // namespace vexmoor
