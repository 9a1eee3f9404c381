#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/accessor.h"
#include "controls/caret_stops.h"
#include "controls/control.h"
#include "controls/edit_history.h"
#include "controls/format_runs.h"
#include "controls/styled_runs.h"
#include "controls/text_buffer.h"

namespace paperway {

/// A line without its line end, and without the form feed that closes the text.
struct StyledLine {
  std::size_t begin;
  std::size_t end;   // of what is drawn
  std::size_t next;  // begin of the line after it
  std::vector<StyledRun> runs;
};

/// The text of a report as bytes in windows-1252, with formats by range, a selection and editing.
/// Offsets count bytes from 0, CR LF two; nothing is lost or made alike. Wherever a caret, a copied
/// text or a drawing leaves out characters, the bytes stay.
class RichTextBox : public Control {
 public:
  RichTextBox(Form& owner, std::string itsName, Control* itsContainer = nullptr);

  bool Locked = false;
  int RightMargin = 0;  // twips; 0 wraps at the control's edge
  bool HorizontalBar = true;
  bool VerticalBar = true;
  /// Columns, counted in characters of each line from 0, at which a numbered line goes down.
  std::vector<std::int16_t> Guides;
  /// A reader, that is while the text is locked, presses a page key where there is nothing more to
  /// scroll.
  std::function<void(bool forward)> onTurnPage;

  /// The file's bytes become the text. An AutomationError leaves the text as it was.
  void LoadFile(Storage& storage, const std::filesystem::path& path);
  enum FileType { rtfRTF = 0, rtfText = 1 };
  void SaveFile(Storage& storage, const std::filesystem::path& path, int type,
                const std::vector<std::filesystem::path>& inputs = {}) const;

  /// Offset of the first match at or after `start` that ends at or before `end`, ignoring case; -1
  /// when there is none, and for an empty text.
  std::int64_t Find(std::string_view bytes, std::int64_t start, std::int64_t end) const;

  /// The selected characters as lines that any device can draw.
  std::vector<StyledLine> SelPrint() const;

 private:
  std::string text() const { return text_.str(); }
  void setText(std::string bytes);
  std::int64_t selStart() const;
  void setSelStart(std::int64_t start);
  std::int64_t selLength() const;
  void setSelLength(std::int64_t length);
  double selFontSize() const;
  void setSelFontSize(double points);
  std::int64_t selColor() const;
  void setSelColor(std::int64_t color);
  bool selBold() const;
  void setSelBold(bool bold);
  bool selUnderline() const;
  void setSelUnderline(bool underline);

 public:
  /// Assigning drops all formats. Assigning SelStart leaves nothing selected; a negative SelLength
  /// is refused with an AutomationError. The formats are those of the first selected character when
  /// read, and go to all of them when assigned.
  Accessor<RichTextBox, std::string, &RichTextBox::text, &RichTextBox::setText> Text{*this};
  Accessor<RichTextBox, std::int64_t, &RichTextBox::selStart, &RichTextBox::setSelStart> SelStart{
      *this};
  Accessor<RichTextBox, std::int64_t, &RichTextBox::selLength, &RichTextBox::setSelLength>
      SelLength{*this};
  Accessor<RichTextBox, double, &RichTextBox::selFontSize, &RichTextBox::setSelFontSize>
      SelFontSize{*this};
  Accessor<RichTextBox, std::int64_t, &RichTextBox::selColor, &RichTextBox::setSelColor> SelColor{
      *this};
  Accessor<RichTextBox, bool, &RichTextBox::selBold, &RichTextBox::setSelBold> SelBold{*this};
  Accessor<RichTextBox, bool, &RichTextBox::selUnderline, &RichTextBox::setSelUnderline>
      SelUnderline{*this};
  std::string SelText() const;

  // The same without copying.
  const TextBuffer& buffer() const { return text_; }
  const FormatRuns& formats() const { return formats_; }
  void show(TextSlice slice);
  /// The text that the last LoadFile read.
  const std::shared_ptr<const SharedText>& loaded() const { return loaded_; }
  void format(std::size_t begin, std::size_t end, const FormatChange& change);

  // Lines count from 0.
  std::uint64_t lineCount() const { return text_.lineCount(); }
  std::uint64_t lineFromChar(std::size_t offset) const { return text_.lineOf(offset); }
  std::size_t lineIndex(std::uint64_t line) const { return text_.lineStart(line); }
  StyledLine lineBounds(std::uint64_t line) const;  // without runs
  StyledLine styledLine(std::uint64_t line) const;
  std::vector<StyledRun> styledRuns(std::size_t begin, std::size_t end) const;
  /// Every line has the same height: no format in use but hidden marks has a size of its own.
  bool oneFontSize() const;

  /// Change with the text, and with text or formats.
  std::uint64_t textRevision() const { return textRevision_; }
  std::uint64_t formatRevision() const { return formatRevision_; }

  // The caret is the end of the selection that moves; the user's never stands inside a line end or
  // a hidden mark, nor behind the form feed that closes the text.
  std::size_t caret() const { return caret_; }
  std::size_t anchor() const { return anchor_; }
  /// Something is selected that a reader can see: not the first character, on which the program
  /// leaves every page.
  bool hasSelection() const;
  void moveCaret(std::size_t offset, bool extend = false);
  enum class Step {
    left,
    right,
    wordLeft,
    wordRight,
    up,
    down,
    pageUp,
    pageDown,
    lineBegin,
    lineEnd,
    textBegin,
    textEnd
  };
  void stepCaret(Step step, bool extend = false, std::uint64_t linesPerPage = 20);
  void selectAll();
  void selectWord(std::size_t offset);
  void selectLine(std::size_t offset);

  // What the user does to the text; nothing happens, and false comes back, while it is locked.
  bool typeText(std::string_view utf8);  // in place of the selection; line ends become CR LF
  bool eraseBackward(bool word = false);
  bool eraseForward(bool word = false);
  bool undo();
  bool redo();
  /// What is about to be done to the formats of the selection can be undone.
  void rememberFormats();
  bool canUndo() const { return history_.canUndo(); }
  bool canRedo() const { return history_.canRedo(); }

  /// What a key does to caret and text: arrows, Home, End, Page Up and Down, Delete, backspace,
  /// Ctrl+A, Ctrl+Z and Ctrl+Y. False for a key that means nothing here.
  bool handleKey(int keyCode, int shift, std::uint64_t linesPerPage = 20);

  /// The selected characters for the clipboard (UTF-8), without those that the page hides.
  std::string copyText() const;
  bool paste(std::string_view utf8) { return typeText(utf8); }

 private:
  std::size_t selectionBegin() const { return std::min(caret_, anchor_); }
  std::size_t selectionEnd() const { return std::max(caret_, anchor_); }
  void formatSelection(const FormatChange& change);
  CharFormat selectionFormat() const { return formats_.at(selectionBegin()); }
  void textReplaced();
  void write(const std::function<void(std::string_view)>& out) const;

  CaretStops stops() const { return {text_, formats_}; }
  BaseLook baseLook() const { return {Font, ForeColor}; }
  bool restsOnFirst() const;
  std::size_t stepTarget(Step step, std::uint64_t linesPerPage);
  std::size_t verticalTarget(std::int64_t lines);

  bool replaceSelection(std::string_view bytes);
  void apply(std::size_t at, std::size_t count, std::string_view with);
  bool erase(std::size_t begin, std::size_t end);

  TextBuffer text_;
  FormatRuns formats_;
  std::shared_ptr<const SharedText> loaded_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
  bool selectedByProgram_ = false;
  std::size_t goalColumn_ = std::string::npos;  // of moves from line to line
  EditHistory history_;
  std::uint64_t textRevision_ = 0;
  std::uint64_t formatRevision_ = 0;
};

}  // namespace paperway
