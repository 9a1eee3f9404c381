#include "controls/filter_text.h"

#include <algorithm>

#include "util/text.h"

namespace paperway {
namespace {

std::vector<std::string> split(std::string_view text, char divider) {
  std::vector<std::string> parts;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(divider, begin);
    parts.emplace_back(trimBlanks(text.substr(begin, end - begin)));
    if (end == std::string_view::npos) return parts;
    begin = end + 1;
  }
}

}  // namespace

std::vector<FileQuestion::Filter> filtersOf(std::string_view text, char divider) {
  std::vector<FileQuestion::Filter> filters;
  const std::vector<std::string> items = split(text, divider);
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    if (items[i].empty() || items[i + 1].empty()) break;
    filters.push_back({items[i], split(items[i + 1], ';')});
    std::vector<std::string>& patterns = filters.back().patterns;
    std::replace(patterns.begin(), patterns.end(), std::string("*.*"), std::string("*"));
  }
  return filters;
}

}  // namespace paperway
