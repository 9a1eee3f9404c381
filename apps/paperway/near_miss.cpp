#include "apps/paperway/near_miss.h"

#include <algorithm>

#include "util/text.h"

namespace paperway::command {
namespace {

/// Letters to put in, take out, exchange, or swap with a neighbour to make one word the other.
std::size_t slips(const std::string& from, const std::string& to) {
  std::vector<std::vector<std::size_t>> cost(from.size() + 1,
                                             std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        cost[i][j] = i + j;
        continue;
      }
      const std::size_t other = from[i - 1] == to[j - 1] ? 0 : 1;
      cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + other});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
        cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
      }
    }
  }
  return cost[from.size()][to.size()];
}

}  // namespace

std::string nearMiss(std::string_view word, const std::vector<std::string>& names) {
  constexpr std::size_t kLongestWord = 100;
  const std::string lower = lowerCase(word);
  if (lower.empty() || lower.size() > kLongestWord) return "";
  std::string nearest;
  std::size_t fewest = lower.size() / 3 + 2;  // a third of the letters, and one in a short word
  for (const std::string& name : names) {
    const std::string other = lowerCase(std::string_view(name));
    const std::size_t found = other.starts_with(lower) ? 0 : slips(lower, other);
    if (found >= fewest) continue;
    fewest = found;
    nearest = name;
  }
  return nearest;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& names) {
  const std::string meant = nearMiss(word, names);
  return meant.empty() ? "" : " Did you mean " + meant + "?";
}

}  // namespace paperway::command
