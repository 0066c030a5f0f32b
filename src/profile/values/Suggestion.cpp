#include "profile/values/Suggestion.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace tarnwell::profile {
namespace {

/// How many letters have to be put in, taken out, replaced or swapped with the next to make one word of the other.
std::size_t distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> beforeLast(other.size() + 1);
  std::vector<std::size_t> last(other.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t row = 1; row <= one.size(); ++row) {
    std::vector<std::size_t> current(other.size() + 1, row);
    for (std::size_t column = 1; column <= other.size(); ++column) {
      const bool isSame = one[row - 1] == other[column - 1];
      current[column] = std::min({last[column] + 1, current[column - 1] + 1, last[column - 1] + (isSame ? 0 : 1)});
      if (row > 1 && column > 1 && one[row - 1] == other[column - 2] && one[row - 2] == other[column - 1]) {
        current[column] = std::min(current[column], beforeLast[column - 2] + 1);
      }
    }
    beforeLast = std::exchange(last, std::move(current));
  }
  return last.back();
}

}  // namespace

std::string_view closest(std::string_view word, std::span<const std::string_view> candidates) {
  std::string_view best;
  std::size_t least = std::min<std::size_t>(2, (std::max<std::size_t>(word.size(), 1) - 1) / 2) + 1;
  for (const std::string_view candidate : candidates) {
    const bool mayFit = candidate.size() <= word.size() + least && word.size() <= candidate.size() + least;
    const std::size_t changes = mayFit ? distance(word, candidate) : least;
    if (changes < least) {
      least = changes;
      best = candidate;
    }
  }
  return best;
}

std::string suggestion(std::string_view word, std::span<const std::string_view> candidates,
                       std::string_view otherwise) {
  const auto meant = closest(word, candidates);
  return meant.empty() ? std::string(otherwise) : "; did you mean " + std::string(meant) + "?";
}

}  // namespace tarnwell::profile
