// What may come next in a line that someone types.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace simulator::scenario {

// The words that may stand where the text before ends, and that begin like `word`; in order, each once.
// `names` are those that `let` has given.
std::vector<std::string> completions(std::string_view before, std::string_view word,
                                     const std::set<std::string>& names);

}  // namespace simulator::scenario
