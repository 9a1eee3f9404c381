#include "controls/rich_text.h"
#include "util/code_page.h"

namespace paperway {
namespace {

constexpr std::size_t kUndoLimit = 64 << 20;  // bytes of one edit that are kept for undoing it

/// Line ends of any kind as those of report files.
std::string withCrLf(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' || text[i] == '\r') {
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      out += "\r\n";
    } else {
      out += text[i];
    }
  }
  return out;
}

enum class CharacterClass { blank, word, other };

CharacterClass classOf(char byte) {
  const auto c = static_cast<unsigned char>(byte);
  if (c <= ' ') return CharacterClass::blank;
  const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 0xC0;
  return letter || (c >= '0' && c <= '9') || c == '_' ? CharacterClass::word
                                                      : CharacterClass::other;
}

}  // namespace

std::size_t RichTextBox::textEnd() const {
  const bool closed = !text_.empty() && text_[text_.size() - 1] == '\f';
  return text_.size() - (closed ? 1 : 0);
}

bool RichTextBox::restsOnFirst() const {
  return selectedByProgram_ && selectionBegin() == 0 && selectionEnd() == 1;
}

bool RichTextBox::hasSelection() const {
  return caret_ != anchor_ && !(Locked && restsOnFirst());
}

bool RichTextBox::insideLineEnd(std::size_t offset) const {
  return offset > 0 && offset < text_.size() && text_[offset] == '\n' && text_[offset - 1] == '\r';
}

std::size_t RichTextBox::nextStop(std::size_t offset) const {
  if (offset >= textEnd()) return textEnd();
  if (formats_.at(offset).hidden()) {
    while (offset < textEnd() && formats_.at(offset).hidden()) ++offset;
    return offset;
  }
  ++offset;
  return insideLineEnd(offset) ? offset + 1 : offset;
}

std::size_t RichTextBox::previousStop(std::size_t offset) const {
  if (offset == 0) return 0;
  if (formats_.at(offset - 1).hidden()) {
    while (offset > 0 && formats_.at(offset - 1).hidden()) --offset;
    return offset;
  }
  --offset;
  return insideLineEnd(offset) ? offset - 1 : offset;
}

std::size_t RichTextBox::wordStop(std::size_t offset, bool forward) const {
  const auto classBeside = [&](std::size_t at) { return classOf(text_[forward ? at : at - 1]); };
  const std::size_t limit = forward ? textEnd() : 0;
  offset = std::min(offset, textEnd());  // a selection may reach behind the closing form feed
  const auto skip = [&](auto&& wanted) {
    while (offset != limit && wanted(classBeside(offset))) {
      offset = forward ? nextStop(offset) : previousStop(offset);
    }
  };
  const auto blank = [](CharacterClass c) { return c == CharacterClass::blank; };
  if (!forward) skip(blank);
  if (offset == limit) return offset;
  const CharacterClass first = classBeside(offset);
  if (!blank(first)) skip([first](CharacterClass c) { return c == first; });
  if (forward) skip(blank);
  return offset;
}

void RichTextBox::moveCaret(std::size_t offset, bool extend) {
  caret_ = std::min(offset, textEnd());
  if (insideLineEnd(caret_)) --caret_;
  if (!extend) anchor_ = caret_;
  selectedByProgram_ = false;
  goalColumn_ = std::string::npos;
}

std::size_t RichTextBox::verticalTarget(std::int64_t lines) {
  const std::uint64_t line = text_.lineOf(caret_);
  if (goalColumn_ == std::string::npos) goalColumn_ = caret_ - text_.lineStart(line);
  const std::uint64_t last = text_.lineCount() - 1;
  const auto back = static_cast<std::uint64_t>(lines < 0 ? -lines : lines);
  const std::uint64_t target =
      lines < 0 ? line - std::min(line, back) : std::min(line + back, last);
  const StyledLine bounds = lineBounds(target);
  return std::min(bounds.begin + goalColumn_, bounds.end);
}

std::size_t RichTextBox::stepTarget(Step step, std::uint64_t linesPerPage) {
  const auto page = static_cast<std::int64_t>(linesPerPage);
  switch (step) {
    case Step::left:
      return previousStop(caret_);
    case Step::right:
      return nextStop(caret_);
    case Step::wordLeft:
      return wordStop(caret_, false);
    case Step::wordRight:
      return wordStop(caret_, true);
    case Step::up:
      return verticalTarget(-1);
    case Step::down:
      return verticalTarget(1);
    case Step::pageUp:
      return verticalTarget(-page);
    case Step::pageDown:
      return verticalTarget(page);
    case Step::lineBegin:
      return lineBounds(text_.lineOf(caret_)).begin;
    case Step::lineEnd:
      return lineBounds(text_.lineOf(caret_)).end;
    case Step::textBegin:
      return 0;
    case Step::textEnd:
      return textEnd();
  }
  return caret_;
}

void RichTextBox::stepCaret(Step step, bool extend, std::uint64_t linesPerPage) {
  const bool sideways = step == Step::left || step == Step::right;
  if (sideways && !extend && caret_ != anchor_) {
    moveCaret(step == Step::left ? selectionBegin() : selectionEnd());
    return;
  }
  const std::size_t target = stepTarget(step, linesPerPage);
  const bool vertical =
      step == Step::up || step == Step::down || step == Step::pageUp || step == Step::pageDown;
  const std::size_t goal = vertical ? goalColumn_ : std::string::npos;
  moveCaret(target, extend);
  goalColumn_ = goal;
}

void RichTextBox::selectAll() {
  anchor_ = 0;
  caret_ = text_.size();
  selectedByProgram_ = false;
}

void RichTextBox::selectWord(std::size_t offset) {
  if (text_.empty()) return;
  offset = std::min(offset, text_.size() - 1);
  const CharacterClass wanted = classOf(text_[offset]);
  const StyledLine line = lineBounds(text_.lineOf(offset));
  std::size_t end = offset;
  while (end < line.end && classOf(text_[end]) == wanted) ++end;
  while (offset > line.begin && classOf(text_[offset - 1]) == wanted) --offset;
  anchor_ = offset;
  caret_ = std::max(end, offset);
  selectedByProgram_ = false;
}

void RichTextBox::selectLine(std::size_t offset) {
  const StyledLine line = lineBounds(text_.lineOf(offset));
  anchor_ = line.begin;
  caret_ = line.next;
  selectedByProgram_ = false;
}

void RichTextBox::apply(std::size_t at, std::size_t count, std::string_view with) {
  formats_.replaced(at, count, with.size());
  text_.replace(at, count, with);
  caret_ = anchor_ = at + with.size();
  selectedByProgram_ = false;
  goalColumn_ = std::string::npos;
  ++textRevision_;
  ++formatRevision_;
}

/// Typing on is one edit up to the end of the line.
void RichTextBox::remember(Edit edit) {
  edits_.resize(edits_.size() - undone_);
  undone_ = 0;
  if (!edits_.empty() && edit.removed.empty() && edit.inserted.size() == 1) {
    Edit& last = edits_.back();
    const bool goesOn = edit.at == last.at + last.inserted.size();
    if (goesOn && !last.inserted.empty() && last.inserted.back() != '\n') {
      last.inserted += edit.inserted;
      return;
    }
  }
  edits_.push_back(std::move(edit));
}

/// The form feed that closes the text stays, and so does a mark at its beginning that the program
/// has selected.
bool RichTextBox::replaceSelection(std::string_view bytes) {
  if (restsOnFirst() && formats_.at(0).hidden()) moveCaret(nextStop(0));
  const std::size_t begin = std::min(selectionBegin(), textEnd());
  const std::size_t count = std::min(selectionEnd(), textEnd()) - begin;
  if (count + bytes.size() > kUndoLimit) {
    edits_.clear();
    undone_ = 0;
  } else {
    std::string copy;
    remember({begin, std::string(text_.view(begin, begin + count, copy)), std::string(bytes),
              formats_.runs(begin, begin + count)});
  }
  apply(begin, count, bytes);
  return true;
}

bool RichTextBox::typeText(std::string_view utf8) {
  if (Locked) return false;
  return replaceSelection(withCrLf(CodePage::windows1252().encode(utf8)));
}

bool RichTextBox::erase(std::size_t begin, std::size_t end) {
  if (Locked) return false;
  if (caret_ == anchor_) {
    anchor_ = begin;
    caret_ = end;
  }
  return caret_ == anchor_ || replaceSelection("");
}

/// Both pass over hidden marks beside the caret: what the user does not see goes with a selection
/// only.
bool RichTextBox::eraseBackward(bool word) {
  std::size_t end = caret_;
  while (end > 0 && formats_.at(end - 1).hidden()) --end;
  return erase(word ? wordStop(end, false) : previousStop(end), end);
}

bool RichTextBox::eraseForward(bool word) {
  std::size_t begin = caret_;
  while (begin < text_.size() && formats_.at(begin).hidden()) ++begin;
  return erase(begin, word ? wordStop(begin, true) : nextStop(begin));
}

bool RichTextBox::undo() {
  if (Locked || !canUndo()) return false;
  ++undone_;
  Edit& edit = edits_[edits_.size() - undone_];
  edit.insertedFormats = formats_.runs(edit.at, edit.at + edit.inserted.size());
  apply(edit.at, edit.inserted.size(), edit.removed);
  formats_.set(edit.removedFormats);
  return true;
}

bool RichTextBox::redo() {
  if (Locked || !canRedo()) return false;
  const Edit& edit = edits_[edits_.size() - undone_];
  --undone_;
  apply(edit.at, edit.removed.size(), edit.inserted);
  formats_.set(edit.insertedFormats);
  return true;
}

void RichTextBox::rememberFormats() {
  if (Locked || selectionEnd() - selectionBegin() > kUndoLimit) return;
  remember(
      {selectionBegin(), SelText(), SelText(), formats_.runs(selectionBegin(), selectionEnd())});
}

namespace {

struct KeyStep {
  int keyCode;
  RichTextBox::Step plain;
  RichTextBox::Step withCtrl;
};

using Step = RichTextBox::Step;
constexpr KeyStep kKeySteps[] = {
    {keyLeft, Step::left, Step::wordLeft},
    {keyRight, Step::right, Step::wordRight},
    {keyUp, Step::up, Step::up},
    {keyDown, Step::down, Step::down},
    {keyPageUp, Step::pageUp, Step::pageUp},
    {keyPageDown, Step::pageDown, Step::pageDown},
    {keyHome, Step::lineBegin, Step::textBegin},
    {keyEnd, Step::lineEnd, Step::textEnd},
};

}  // namespace

bool RichTextBox::handleKey(int keyCode, int shift, std::uint64_t linesPerPage) {
  const bool ctrl = (shift & smCtrl) != 0;
  if ((shift & smAlt) != 0) return false;
  for (const KeyStep& key : kKeySteps) {
    if (key.keyCode != keyCode) continue;
    stepCaret(ctrl ? key.withCtrl : key.plain, (shift & smShift) != 0, linesPerPage);
    return true;
  }
  if (keyCode == keyDelete) return eraseForward(ctrl);
  if (keyCode == keyBack) return eraseBackward(ctrl);
  if (!ctrl) return false;
  if (keyCode == 'Z') return (shift & smShift) != 0 ? redo() : undo();
  if (keyCode == 'Y') return redo();
  if (keyCode != 'A') return false;
  selectAll();
  return true;
}

}  // namespace paperway
