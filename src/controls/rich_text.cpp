#include "controls/rich_text.h"

#include "controls/rtf_writer.h"
#include "controls/text_search.h"
#include "paperway/automation_error.h"
#include "platform/output_file.h"
#include "util/code_page.h"

namespace paperway {
namespace {

std::size_t offsetOf(std::int64_t position, std::size_t size, const char* property) {
  if (position < 0) {
    throw AutomationError(AutomationError::kInvalidCall, "RichTextBox",
                          std::string(property) + " cannot be negative.");
  }
  return std::min(static_cast<std::size_t>(position), size);
}

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

RichTextBox::RichTextBox(Form& owner, std::string itsName, Control* itsContainer)
    : Control(owner, ControlKind::richText, std::move(itsName), itsContainer) {
  BackColor = kWindowBackground;
  ForeColor = kWindowText;
  Font = BaseLook().font;
}

void RichTextBox::LoadFile(Storage& storage, const std::filesystem::path& path) {
  if (loaded_ == nullptr || !loaded_->isContentOf(storage, path)) {
    loaded_ = SharedText::load(storage, path, "LoadFile");
  }
  show({loaded_, 0, loaded_->view().size()});
}

void RichTextBox::SaveFile(Storage& storage, const std::filesystem::path& path, int type,
                           const std::vector<std::filesystem::path>& inputs) const {
  OutputFile file(storage, path, "SaveFile", {.inputs = inputs});
  const auto out = [&file](std::string_view bytes) { file.write(bytes); };
  if (type == rtfText) {
    write(out);
  } else {
    writeRtf(text_, formats_, baseLook(), out);
  }
  file.commit();
}

void RichTextBox::write(const std::function<void(std::string_view)>& out) const {
  for (std::size_t at = 0; at < text_.size();) {
    const std::string_view piece = text_.pieceAt(at);
    out(piece);
    at += piece.size();
  }
}

std::int64_t RichTextBox::Find(std::string_view bytes, std::int64_t start, std::int64_t end) const {
  if (start < 0 || end < start) return -1;
  const std::size_t found = text_.find(CaselessNeedle(bytes), static_cast<std::size_t>(start),
                                       static_cast<std::size_t>(end));
  return found == std::string::npos ? -1 : static_cast<std::int64_t>(found);
}

void RichTextBox::setText(std::string bytes) {
  text_.assign(std::move(bytes));
  textReplaced();
}

void RichTextBox::show(TextSlice slice) {
  text_.assign(std::move(slice));
  textReplaced();
}

void RichTextBox::textReplaced() {
  formats_.reset(text_.size());
  caret_ = anchor_ = 0;
  goalColumn_ = std::string::npos;
  history_.clear();
  ++textRevision_;
  ++formatRevision_;
}

std::int64_t RichTextBox::selStart() const {
  return static_cast<std::int64_t>(selectionBegin());
}

void RichTextBox::setSelStart(std::int64_t start) {
  caret_ = anchor_ = offsetOf(start, text_.size(), "SelStart");
  goalColumn_ = std::string::npos;
}

std::int64_t RichTextBox::selLength() const {
  return static_cast<std::int64_t>(selectionEnd() - selectionBegin());
}

void RichTextBox::setSelLength(std::int64_t length) {
  const std::size_t begin = selectionBegin();
  caret_ = begin + offsetOf(length, text_.size() - begin, "SelLength");
  anchor_ = begin;
  selectedByProgram_ = true;
  goalColumn_ = std::string::npos;
}

std::string RichTextBox::SelText() const {
  std::string copy;
  return std::string(text_.view(selectionBegin(), selectionEnd(), copy));
}

void RichTextBox::format(std::size_t begin, std::size_t end, const FormatChange& change) {
  formats_.change(begin, end, change);
  ++formatRevision_;
}

void RichTextBox::formatSelection(const FormatChange& change) {
  format(selectionBegin(), selectionEnd(), change);
}

double RichTextBox::selFontSize() const {
  const double size = selectionFormat().size;
  return size > 0 ? size : Font.Size;
}

void RichTextBox::setSelFontSize(double points) {
  formatSelection({.size = points});
}

std::int64_t RichTextBox::selColor() const {
  return selectionFormat().color.value_or(ForeColor);
}

void RichTextBox::setSelColor(std::int64_t color) {
  formatSelection({.color = static_cast<Color>(color)});
}

bool RichTextBox::selBold() const {
  return selectionFormat().bold;
}
void RichTextBox::setSelBold(bool bold) {
  formatSelection({.bold = bold});
}
bool RichTextBox::selUnderline() const {
  return selectionFormat().underline;
}
void RichTextBox::setSelUnderline(bool underline) {
  formatSelection({.underline = underline});
}

StyledLine RichTextBox::lineBounds(std::uint64_t line) const {
  StyledLine bounds{text_.lineStart(line), 0, text_.lineStart(line + 1), {}};
  bounds.end = bounds.next;
  const auto endsWith = [&](char byte) {
    return bounds.end > bounds.begin && text_[bounds.end - 1] == byte;
  };
  if (endsWith('\n')) {
    --bounds.end;
    if (endsWith('\r')) --bounds.end;
  } else if (endsWith('\f')) {
    --bounds.end;
  }
  return bounds;
}

std::vector<StyledRun> RichTextBox::styledRuns(std::size_t begin, std::size_t end) const {
  return paperway::styledRuns(text_, formats_, begin, end, baseLook());
}

StyledLine RichTextBox::styledLine(std::uint64_t line) const {
  StyledLine styled = lineBounds(line);
  styled.runs = styledRuns(styled.begin, styled.end);
  return styled;
}

std::vector<StyledLine> RichTextBox::SelPrint() const {
  std::vector<StyledLine> lines;
  const std::size_t end = selectionEnd();
  std::uint64_t number = text_.lineOf(selectionBegin());
  for (std::size_t begin = selectionBegin(); begin < end; ++number) {
    StyledLine line = lineBounds(number);
    line.begin = begin;
    line.end = std::clamp(line.end, begin, end);
    line.runs = styledRuns(line.begin, line.end);
    begin = line.next;
    lines.push_back(std::move(line));
  }
  return lines;
}

bool RichTextBox::oneFontSize() const {
  const std::vector<CharFormat>& all = formats_.formats();
  return std::all_of(all.begin(), all.end(), [this](const CharFormat& format) {
    return format.size == 0 || format.hidden() || format.size == Font.Size;
  });
}

std::string RichTextBox::copyText() const {
  std::string shown;
  if (!hasSelection()) return shown;
  std::string copy;
  const std::size_t end = std::min(selectionEnd(), stops().textEnd());
  for (const FormatRuns::Run& run : formats_.runs(selectionBegin(), end)) {
    if (run.format.hidden()) continue;
    shown += CodePage::windows1252().decode(text_.view(run.begin, run.end, copy));
  }
  return shown;
}

bool RichTextBox::restsOnFirst() const {
  return selectedByProgram_ && selectionBegin() == 0 && selectionEnd() == 1;
}

bool RichTextBox::hasSelection() const {
  return caret_ != anchor_ && !(Locked && restsOnFirst());
}

void RichTextBox::moveCaret(std::size_t offset, bool extend) {
  caret_ = std::min(offset, stops().textEnd());
  if (stops().insideLineEnd(caret_)) --caret_;
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
      return stops().previousStop(caret_);
    case Step::right:
      return stops().nextStop(caret_);
    case Step::wordLeft:
      return stops().wordStop(caret_, false);
    case Step::wordRight:
      return stops().wordStop(caret_, true);
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
      return stops().textEnd();
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

/// The form feed that closes the text stays, and so does a mark at its beginning that the program
/// has selected.
bool RichTextBox::replaceSelection(std::string_view bytes) {
  if (restsOnFirst() && formats_.at(0).hidden()) moveCaret(stops().nextStop(0));
  const std::size_t begin = std::min(selectionBegin(), stops().textEnd());
  const std::size_t count = std::min(selectionEnd(), stops().textEnd()) - begin;
  if (count + bytes.size() > kUndoLimit) {
    history_.clear();
  } else {
    std::string copy;
    history_.remember({begin, std::string(text_.view(begin, begin + count, copy)),
                       std::string(bytes), formats_.runs(begin, begin + count)});
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
  return erase(word ? stops().wordStop(end, false) : stops().previousStop(end), end);
}

bool RichTextBox::eraseForward(bool word) {
  std::size_t begin = caret_;
  while (begin < text_.size() && formats_.at(begin).hidden()) ++begin;
  return erase(begin, word ? stops().wordStop(begin, true) : stops().nextStop(begin));
}

bool RichTextBox::undo() {
  if (Locked || !canUndo()) return false;
  EditHistory::Edit& edit = history_.back();
  edit.insertedFormats = formats_.runs(edit.at, edit.at + edit.inserted.size());
  apply(edit.at, edit.inserted.size(), edit.removed);
  formats_.set(edit.removedFormats);
  return true;
}

bool RichTextBox::redo() {
  if (Locked || !canRedo()) return false;
  const EditHistory::Edit& edit = history_.forward();
  apply(edit.at, edit.removed.size(), edit.inserted);
  formats_.set(edit.insertedFormats);
  return true;
}

void RichTextBox::rememberFormats() {
  if (Locked || selectionEnd() - selectionBegin() > kUndoLimit) return;
  history_.remember(
      {selectionBegin(), SelText(), SelText(), formats_.runs(selectionBegin(), selectionEnd())});
}

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
