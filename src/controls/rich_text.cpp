#include "controls/rich_text.h"

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

void RichTextBox::SaveFile(Storage& storage, const std::filesystem::path& path, int type) const {
  OutputFile file(storage, path, "SaveFile");
  const auto out = [&file](std::string_view bytes) { file.write(bytes); };
  if (type == rtfText) {
    write(out);
  } else {
    writeRtf(*this, out);
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
  edits_.clear();
  undone_ = 0;
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
  return paperway::styledRuns(text_, formats_, begin, end, {Font, ForeColor});
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
  const std::size_t end = std::min(selectionEnd(), textEnd());
  for (const FormatRuns::Run& run : formats_.runs(selectionBegin(), end)) {
    if (run.format.hidden()) continue;
    shown += CodePage::windows1252().decode(text_.view(run.begin, run.end, copy));
  }
  return shown;
}

}  // namespace paperway
