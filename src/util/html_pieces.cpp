#include "util/html_pieces.h"

#include <algorithm>
#include <array>
#include <optional>

#include "util/text.h"

namespace paperway {
namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::size_t skipSpace(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of(kSpace, at), text.size());
}

/// Whether the text goes on with these characters, whatever their case.
bool goesOn(std::string_view text, std::size_t at, std::string_view wanted) {
  if (text.size() < at || text.size() - at < wanted.size()) return false;
  return std::equal(wanted.begin(), wanted.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                    [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b + 32 : b); });
}

/// The place behind "<p style = page-break-after:always> </p>" that begins here.
std::optional<std::size_t> behindBreak(std::string_view text, std::size_t at) {
  for (const std::string_view part : {"<p", "style", "=", "page-break-after:always", ">", "</p>"}) {
    at = skipSpace(text, at);
    if (!goesOn(text, at, part)) return std::nullopt;
    at += part.size();
  }
  return at;
}

/// The place behind the element or tag that begins here, when it shows nothing by itself but holds
/// for all that follows.
std::optional<std::size_t> behindSetting(std::string_view text, std::size_t at) {
  for (const std::string_view whole : {"style", "title"}) {
    if (!goesOn(text, at + 1, whole)) continue;
    for (std::size_t end = at; (end = text.find("</", end)) != std::string_view::npos; end += 2) {
      if (!goesOn(text, end + 2, whole)) continue;
      const std::size_t close = text.find('>', end);
      if (close != std::string_view::npos) return close + 1;
    }
    return std::nullopt;
  }
  constexpr std::array<std::string_view, 10> kTags{
      "!doctype", "html", "head", "/head", "meta", "link", "body", "font", "blockquote", "p style"};
  const auto begins = [&](std::string_view tag) { return goesOn(text, at + 1, tag); };
  if (std::none_of(kTags.begin(), kTags.end(), begins) || behindBreak(text, at))
    return std::nullopt;
  const std::size_t close = text.find('>', at);
  if (close == std::string_view::npos) return std::nullopt;
  return close + 1;
}

std::string_view headOf(std::string_view document) {
  std::size_t at = skipSpace(document, 0);
  while (at < document.size() && document[at] == '<') {
    const std::optional<std::size_t> behind = behindSetting(document, at);
    if (!behind) break;
    at = skipSpace(document, *behind);
  }
  return document.substr(0, at);
}

}  // namespace

HtmlPieces::HtmlPieces(std::string_view document, std::size_t pagesOfAPiece)
    : head_(headOf(document)) {
  std::size_t begin = 0;
  std::size_t pages = 0;
  for (std::size_t at = head_.size(); (at = document.find('<', at)) != std::string_view::npos;) {
    const std::optional<std::size_t> behind = behindBreak(document, at);
    if (behind && ++pages % pagesOfAPiece == 0) {
      pieces_.push_back(document.substr(begin, at - begin));
      begin = *behind;
    }
    at = behind.value_or(at + 1);
  }
  const std::string_view rest = document.substr(begin);
  if (pieces_.empty() || skipSpace(rest, 0) < rest.size()) pieces_.push_back(rest);
}

std::string HtmlPieces::piece(std::size_t index) const {
  const std::string_view pages = pieces_.at(index);
  return index == 0 ? std::string(pages) : std::string(head_).append(pages);
}

}  // namespace paperway
