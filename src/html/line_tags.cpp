#include "html/line_tags.h"

#include <algorithm>
#include <cstring>

namespace paperway {
namespace {

constexpr std::string_view kBlank = "&nbsp;";

/// All of `text` with `to` in the place of each `from`, in `out`.
void replaceAll(std::string& out, std::string_view text, std::string_view from,
                std::string_view to) {
  out.clear();
  for (std::size_t at = 0; (at = text.find(from)) != std::string_view::npos;) {
    out.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  out.append(text);
}

}  // namespace

LineTags::LineTags(Replacements replacements) : replacements_(std::move(replacements)) {
  std::erase_if(replacements_, [](const auto& each) { return each.first.empty(); });
  for (std::size_t byte = 0; byte < pieces_.size(); ++byte) {
    pieces_[byte] = {{static_cast<char>(byte)}, 1, false, byte != '\r'};
  }
  Piece& blank = pieces_[' '];
  std::copy(kBlank.begin(), kBlank.end(), blank.text);
  blank.length = kBlank.size();
  for (const auto& [from, to] : replacements_) {
    pieces_[static_cast<unsigned char>(from.front())].mayBegin = true;
    for (const char byte : from) {
      pieces_[static_cast<unsigned char>(byte)].divides = false;
      if (kBlank.find(byte) == kBlank.npos) continue;
      blank.mayBegin = true;
      blank.divides = false;
    }
  }
}

void LineTags::append(OutputLines& out, std::string_view text) {
  if (appendPlain(out, text)) return;
  replaceAll(line_, text, " ", kBlank);
  for (const auto& [from, to] : replacements_) {
    if (line_.find(from) == line_.npos) continue;
    replaceAll(replaced_, line_, from, to);
    line_.swap(replaced_);
  }
  out.append(line_);
}

/// Nothing, and false, where one of the texts might be found. Every piece is written with all its
/// eight bytes, the next one over what it does not need.
bool LineTags::appendPlain(OutputLines& out, std::string_view text) const {
  char* const begin = out.reserve(text.size() * kBlank.size() + sizeof(Piece::text));
  char* at = begin;
  bool mayBegin = false;
  for (const char byte : text) {
    const Piece& piece = pieceOf(byte);
    std::memcpy(at, piece.text, sizeof piece.text);
    at += piece.length;
    mayBegin |= piece.mayBegin;
  }
  if (!mayBegin) out.advance(static_cast<std::size_t>(at - begin));
  return !mayBegin;
}

std::size_t LineTags::part(std::string_view text, std::size_t wanted) const {
  if (text.size() <= wanted) return text.size();
  if (const std::size_t end = lastPart(text.substr(0, wanted)); end > 0) return end;
  std::size_t end = wanted;
  while (end < text.size() && !pieceOf(text[end]).divides) ++end;
  return std::min(end + 1, text.size());
}

std::size_t LineTags::lastPart(std::string_view text) const {
  std::size_t end = text.size();
  while (end > 0 && !pieceOf(text[end - 1]).divides) --end;
  return end;
}

}  // namespace paperway
