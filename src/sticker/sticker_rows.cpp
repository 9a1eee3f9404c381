#include "sticker/sticker_rows.h"

#include "paperway/automation_error.h"
#include "platform/output_file.h"
#include "sticker/sticker_template.h"

namespace paperway {
namespace {

constexpr char kSource[] = "StickerPrint";
constexpr std::size_t kBlock = 128 << 10;
constexpr std::int64_t kStickersPerProgress = 1024;

void require(bool holds, const std::string& what) {
  if (!holds) throw AutomationError(AutomationError::kInvalidCall, kSource, what);
}

void check(const StickerRowsArguments& arguments) {
  const StickerShape& shape = arguments.shape;
  require(shape.columns > 0, "A sheet needs at least one column of stickers.");
  require(shape.rows > 0, "A sheet needs at least one row of stickers.");
  require(arguments.lines.size() <= shape.fields,
          "A sticker has " + std::to_string(shape.fields) + " lines; there are " +
              std::to_string(arguments.lines.size()) + " to print.");
  require(arguments.copies > 0, "A sticker is printed at least once.");
}

/// Stickers on their way to the file, sheet by sheet.
class Filler {
 public:
  Filler(const StickerRowsArguments& arguments, OutputFile& file)
      : arguments_(arguments),
        file_(file),
        row_(arguments.shape),
        sheet_(arguments.shape, [this](std::string_view bytes) { append(bytes); }) {
    for (const std::string& line : arguments.lines) templates_.emplace_back(line, arguments.Rs);
  }

  void fill() {
    Recordset& rows = arguments_.Rs;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      addRow(rows);
      ++done_.rows;
    }
    if (!row_.isEmpty()) endRow();
    if (rowsOnSheet_ > 0 || done_.pages == 0) endSheet();
    file_.write(block_);
    tell();
  }

 private:
  void addRow(const Recordset& rows) {
    for (std::size_t i = 0; i < templates_.size(); ++i) {
      texts_[i].clear();
      templates_[i].append(texts_[i], rows, done_.rows + 1);
    }
    for (std::int64_t copy = 0; copy < arguments_.copies; ++copy) {
      row_.add(texts_);
      if (copy == 0 && row_.holdsControls()) noteControls();
      if (row_.isFull()) endRow();
      if (++stickers_ % kStickersPerProgress == 0) tell();
    }
  }

  void noteControls() {
    if (done_.controlRows++ == 0) done_.firstControlRow = done_.rows + 1;
  }

  void endRow() {
    lines_.clear();
    row_.take(lines_);
    sheet_.row(lines_);
    if (++rowsOnSheet_ == arguments_.shape.rows) endSheet();
  }

  void endSheet() {
    sheet_.end();
    rowsOnSheet_ = 0;
    ++done_.pages;
  }

  void append(std::string_view bytes) {
    block_ += bytes;
    if (block_.size() < kBlock) return;
    file_.write(block_);
    block_.clear();
  }

  void tell() const {
    if (arguments_.onProgress) arguments_.onProgress(done_);
  }

  const StickerRowsArguments& arguments_;
  OutputFile& file_;
  StickerRow row_;
  StickerSheet sheet_;
  std::vector<StickerTemplate> templates_;
  Sticker texts_;
  std::string lines_;
  std::string block_;
  int rowsOnSheet_ = 0;
  std::int64_t stickers_ = 0;  // a row may be a great many
  ReportProgress done_;
};

}  // namespace

void writeStickers(const StickerRowsArguments& arguments, Storage& storage) {
  check(arguments);
  OutputFile file(storage, arguments.file, kSource, {.inputs = arguments.Rs.sourceFiles()});
  Filler(arguments, file).fill();
  file.commit();
}

}  // namespace paperway
