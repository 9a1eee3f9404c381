#include "sticker/sticker_sheet.h"

#include <gtest/gtest.h>

#include "paperway/headless.h"
#include "paperway/memory.h"
#include "sticker/sticker_rows.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

/// A sheet as it can be read: line ends as "|", the codes as "c", "n" and "F".
std::string readable(std::string bytes) {
  for (const auto& [from, to] : {std::pair<std::string, const char*>{"\r\n", "|"},
                                 {"\x0F", "c"},
                                 {"\x12", "n"},
                                 {"\f", "F"}}) {
    for (std::size_t at = 0; (at = bytes.find(from, at)) != bytes.npos;) {
      bytes.replace(at, from.size(), to);
    }
  }
  return bytes;
}

std::string sheet(const StickerShape& shape, const Sticker& sticker = {"AB", " CDEFGH", "x"}) {
  std::string bytes;
  writeStickerSheet(shape, sticker, [&](std::string_view piece) { bytes += piece; });
  std::int64_t lines = 0;
  for (const char c : bytes) lines += c == '\n';
  EXPECT_EQ(lines, shape.height());
  return readable(bytes);
}

TEST(StickerSheet, StandsAsItsShapeSays) {
  const auto of =
      [](int length, int gap, int columns, int rows, int blank, int fields, bool condensed) {
        return sheet({.length = static_cast<std::uint8_t>(length),
                      .gap = static_cast<std::int16_t>(gap),
                      .columns = static_cast<std::uint8_t>(columns),
                      .rows = static_cast<std::int16_t>(rows),
                      .blankLines = static_cast<std::int16_t>(blank),
                      .fields = static_cast<std::uint8_t>(fields),
                      .condensed = condensed});
      };
  expectEach(of,
             Row{4,
                 3,
                 2,
                 2,
                 0,
                 2,
                 true,
                 "cAB     AB     |CDEF   CDEF   ||AB     AB     |CDEF   CDEF   |nF|"},
             Row{2, 1, 1, 2, 2, 1, false, "AB ||||AB |F|"},
             Row{2, 0, 1, 1, 3, 3, false, "AB|CD|x |F|"},
             Row{0, 2, 2, 1, 0, 1, false, "    |F|"},
             Row{4, 3, 0, 2, 0, 2, true, "c|||||nF|"},
             Row{4, 3, 2, 0, 0, 2, true, "nF|"},
             Row{4, 3, 2, -1, 0, 2, false, "F|"});
}

TEST(StickerSheet, TakesOneByteACharacter) {
  EXPECT_EQ(sheet({.length = 3, .gap = 0, .columns = 1, .rows = 1}, {"d\xC3\xA9j\xC3\xA0"}),
            "d\xE9j|F|");
  EXPECT_EQ(sheet({.length = 2, .gap = 0, .columns = 1, .rows = 1},
                  {"\xE2\x82\xB9"
                   "5"}),
            "?5|F|");
}

class StickersFromRows : public testing::Test {
 protected:
  StickersFromRows() {
    for (int i = 1; i <= 5; ++i) {
      rows_.addRow(
          {"n" + std::to_string(i), i * 1000.5, Date{2026, 3, static_cast<std::uint8_t>(i)}});
    }
  }

  std::string written(const std::vector<std::string>& lines, StickerShape shape,
                      std::int64_t copies = 1) {
    shape.fields = static_cast<std::uint8_t>(lines.size());
    writeStickers({.Rs = rows_,
                   .file = file_,
                   .shape = shape,
                   .lines = lines,
                   .copies = copies,
                   .onProgress = [this](const ReportProgress& done) { done_ = done; }},
                  machine_.platform().storage);
    return readable(readFile(file_));
  }

  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  std::filesystem::path file_ = folder_.path / "stickers.txt";
  MemoryTable rows_{{"name", "amount", "day"}};
  ReportProgress done_;
};

TEST_F(StickersFromRows, FillSheetsFromLeftToRight) {
  const StickerShape shape{.length = 3, .gap = 0, .columns = 2, .rows = 2, .blankLines = 0};
  EXPECT_EQ(written({"{name}"}, shape), "n1 n2 ||n3 n4 |F|n5 |F|");
  EXPECT_EQ(done_.rows, 5);
  EXPECT_EQ(done_.pages, 2);
  EXPECT_EQ(written({"{NAME}"}, {.length = 2, .gap = 0, .columns = 5, .rows = 1}, 2),
            "n1n1n2n2n3|F|n3n4n4n5n5|F|");
}

TEST_F(StickersFromRows, HoldFieldsInPatternsAmongText) {
  const StickerShape shape{.length = 18, .gap = 0, .columns = 1, .rows = 9, .blankLines = -1};
  const auto first = [&](const char* line) {
    const std::string text = written({line}, shape);
    return text.substr(0, text.find('|'));
  };
  expectEach(first,
             Row{"{amount:#,##0.00} Rs", "1,000.50 Rs       "},
             Row{"{day:dd-mmm}/{name}", "01-Mar/n1         "},
             Row{"{{name} {amount}", "{name} 1000.5     "},
             Row{"plain }", "plain }           "});
}

TEST_F(StickersFromRows, AreRefusedByName) {
  const auto refused = [&](const char* line, int columns, int rows) {
    StickerShape shape;
    shape.columns = static_cast<std::uint8_t>(columns);
    shape.rows = static_cast<std::int16_t>(rows);
    return errorOf([&] { written({line}, shape); });
  };
  replaceFile(file_, "kept");
  expectEach(
      refused,
      Row{"{nme}", 1, 1, "There is no field \"nme\"; the fields are name, amount, day."},
      Row{"a {name",
          1,
          1,
          "The line \"a {name\" has a \"{\" that no \"}\" closes; a brace itself is \"{{\"."},
      Row{"x", 0, 1, "A sheet needs at least one column of stickers."},
      Row{"x", 1, 0, "A sheet needs at least one row of stickers."});
  rows_.addRow({"\xFF", 0, Date{}});
  EXPECT_EQ(refused("{name}", 1, 1).substr(0, 56),
            "Field \"name\" of row 6 of the data is not UTF-8 text: see");
  EXPECT_EQ(readFile(file_), "kept");
}

TEST_F(StickersFromRows, ARequestToStopIsHeardAmongTheCopiesOfARow) {
  replaceFile(file_, "kept");
  std::ptrdiff_t told = 0;
  const auto stop = [&](const ReportProgress&) {
    if (++told == 3) throw std::runtime_error("stop");
  };
  EXPECT_THROW(writeStickers({.Rs = rows_,
                              .file = file_,
                              .shape = {},
                              .lines = {"x"},
                              .copies = 1'000'000'000,
                              .onProgress = stop},
                             machine_.storage),
               std::runtime_error);
  EXPECT_EQ(readFile(file_), "kept");
}

TEST_F(StickersFromRows, TellRowsThatMayCommandThePrinter) {
  rows_.addRow({"Caf\xC3\xA9\xE2\x82\xAC", 0, Date{}});  // a letter above ASCII commands nothing
  rows_.addRow({"a\fb", 0, Date{}});
  written({"{name}"}, {}, 3);
  EXPECT_EQ(done_.controlRows, 1);
  EXPECT_EQ(done_.firstControlRow, 7);
}

}  // namespace
}  // namespace paperway
