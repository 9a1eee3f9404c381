#include "controls/rich_text.h"

#include <random>

#include "controls/form.h"
#include "paperway/automation_error.h"
#include "paperway/headless.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

headless::Storage storage;

class RichText : public testing::Test {
 protected:
  TestFolder folder;
  Form form{"RichForm"};
  RichTextBox box{form, "Rt1"};
};

TEST_F(RichText, FilesComeAndGoByteForByte) {
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes += static_cast<char>(c);
  bytes += "lone\rlone\npair\r\n";
  replaceFile(folder.path / "in", bytes, "test");
  box.LoadFile(storage, folder.path / "in");
  EXPECT_EQ(box.Text, bytes);
  box.SaveFile(storage, folder.path / "out", RichTextBox::rtfText);
  EXPECT_EQ(readFile(folder.path / "out", "test"), bytes);

  const auto before = box.loaded();
  box.LoadFile(storage, folder.path / "in");
  EXPECT_EQ(box.loaded(), before) << "an unchanged file is in memory once";
  replaceFile(folder.path / "in", "other", "test");
  box.LoadFile(storage, folder.path / "in");
  EXPECT_THROW(box.LoadFile(storage, folder.path / "missing"), AutomationError);
  EXPECT_EQ(box.Text, "other");
}

TEST_F(RichText, FindIgnoresCase) {
  box.Text = "Total TOTAL to\304l t\366tal \212";
  expectEach([&](const char* text, int start, int end) { return box.Find(text, start, end); },
             Row{"total", 0, 99, 0},
             Row{"total", 1, 99, 6},
             Row{"total", 7, 99, -1},
             Row{"total", 6, 10, -1},
             Row{"total", 6, 11, 6},
             Row{"TO\344L", 0, 99, 12},
             Row{"t\326tal", 0, 99, 17},
             Row{"\232", 0, 99, 23},
             Row{"", 0, 99, -1},
             Row{"x", 0, 99, -1},
             Row{"total", 99, 99, -1});
}

TEST_F(RichText, SelectionsEndAtTheTextsEnd) {
  box.Text = "one\r\n\ntwo\rstill two\r\nlast\f";
  EXPECT_EQ(box.lineIndex(9), box.Text.get().size());
  box.SelStart = 23;
  box.SelLength = 100;
  EXPECT_EQ(box.SelText(), "st\f");
  EXPECT_THROW(box.SelLength = -1, AutomationError);
  box.SelStart = 1;
  EXPECT_EQ(box.SelLength, 0);
  box.SelLength = 6;
  box.SelBold = true;
  const auto print = box.SelPrint();
  ASSERT_EQ(print.size(), 3u);
  EXPECT_EQ(print[0].runs[0].bytes, "ne");
  EXPECT_EQ(print[2].runs[0].bytes, "t");
  EXPECT_TRUE(print[2].runs[0].bold);
}

TEST_F(RichText, CaretNeverStandsInsideALineEndOrAHiddenMark) {
  box.Text = "a\r\n\033Ebc\033F";
  box.format(3, 5, {.size = 1});
  box.format(7, 9, {.size = 1});
  std::string stops;
  for (int i = 0; i < 7; ++i) {
    stops += std::to_string(box.caret());
    box.stepCaret(RichTextBox::Step::right);
  }
  EXPECT_EQ(stops, "0135679");
  box.moveCaret(2);
  EXPECT_EQ(box.caret(), 1u);
  box.selectAll();
  EXPECT_EQ(box.copyText(), "a\r\nbc");
  box.moveCaret(5);
  box.typeText("!");
  EXPECT_FALSE(box.formats().at(5).hidden());
  box.moveCaret(5);
  box.eraseBackward();
  EXPECT_EQ(box.Text, "a\033E!bc\033F") << "the character that is seen, not the mark";
}

TEST_F(RichText, EditingKeepsTheClosingFormFeedAndAMarkThatTheProgramSelected) {
  box.Text = "\017c\f";
  box.format(0, 1, {.size = 1});
  box.SelStart = 0;
  box.SelLength = 1;
  EXPECT_EQ(box.copyText(), "");
  box.typeText("x");
  EXPECT_EQ(box.Text, "\017xc\f");
  box.handleKey(keyEnd, smCtrl);
  box.handleKey(keyDelete, 0);
  box.typeText("y");
  EXPECT_EQ(box.Text, "\017xcy\f");
  box.selectAll();
  box.typeText("z");
  EXPECT_EQ(box.Text, "z\f");
  box.Locked = true;
  box.SelStart = 0;
  box.SelLength = 1;
  EXPECT_FALSE(box.hasSelection()) << "nobody selected what the program did";
  box.selectAll();
  EXPECT_TRUE(box.hasSelection());
  box.SelLength = 1;
  box.selectWord(0);
  EXPECT_TRUE(box.hasSelection());
}

TEST_F(RichText, KeysMoveByLinesWordsAndPages) {
  box.Text = "first line\r\nx\r\nthird one";
  using Places = std::pair<std::size_t, std::size_t>;
  const auto caretAndAnchor = [&](int key, int shift) {
    EXPECT_TRUE(box.handleKey(key, shift)) << key;
    return Places(box.caret(), box.anchor());
  };
  expectEach(caretAndAnchor,
             Row{keyEnd, 0, Places(10, 10)},
             Row{keyDown, 0, Places(13, 13)},
             Row{keyDown, 0, Places(24, 24)},
             Row{keyUp, smShift, Places(13, 24)},
             Row{keyLeft, 0, Places(13, 13)},
             Row{keyHome, smCtrl, Places(0, 0)},
             Row{keyRight, smCtrl, Places(6, 6)},
             Row{keyPageDown, smShift, Places(21, 6)},
             Row{'A', smCtrl, Places(24, 0)},
             Row{keyLeft, smCtrl, Places(21, 21)});
}

TEST_F(RichText, PastedLinesEndAsThoseOfReports) {
  box.typeText("1\r\n2\r3\n4\r");
  EXPECT_EQ(box.Text, "1\r\n2\r\n3\r\n4\r\n");
}

TEST_F(RichText, WordsEndAtBlanksAndAtMarks) {
  box.Text = "Caf\351 12.50--x_1 (b)";
  std::string stops;
  while (box.caret() < box.Text.get().size()) {
    box.handleKey(keyRight, smCtrl);
    stops += std::to_string(box.caret()) + " ";
  }
  EXPECT_EQ(stops, "5 7 8 10 12 16 17 18 19 ");
}

TEST_F(RichText, WordKeysBehindTheClosingFormFeed) {
  for (const char* page : {"\f", "", "\r\n\f", "one two\f"}) {
    for (const int key : {keyRight, keyDelete, keyLeft, keyBack}) {
      for (const bool byProgram : {true, false}) {
        box.Text = page;
        box.selectAll();
        if (byProgram) box.SelLength = 1;
        box.handleKey(key, smCtrl);
        EXPECT_LE(box.caret(), box.Text.get().find_last_not_of('\f') + 1) << page << key;
      }
    }
  }
}

TEST_F(RichText, EditsCanBeTakenBack) {
  box.Text = "bold mark";
  box.format(0, 4, {.bold = true});
  box.moveCaret(4);
  for (const char* key : {"\303\251", "x"}) box.typeText(key);
  box.selectAll();
  box.typeText("a\nb");
  EXPECT_EQ(box.Text, "a\r\nb");
  EXPECT_TRUE(box.undo());
  EXPECT_EQ(box.Text, "bold\351x mark");
  EXPECT_TRUE(box.formats().at(5).bold) << "typed characters look like the one before";
  EXPECT_FALSE(box.formats().at(6).bold);
  EXPECT_TRUE(box.undo());
  EXPECT_EQ(box.Text, "bold mark") << "typing is one edit";
  EXPECT_FALSE(box.undo());
  EXPECT_TRUE(box.redo());
  EXPECT_TRUE(box.eraseBackward(true));
  EXPECT_EQ(box.Text, " mark");
  EXPECT_FALSE(box.canRedo());
  box.Locked = true;
  EXPECT_FALSE(box.handleKey(keyDelete, 0));
  EXPECT_EQ(box.Text, " mark");
}

TEST_F(RichText, SavesRichText) {
  box.Text = "{a}\\\x7F\r\n\033E\351\f";
  box.format(7, 10, {.size = 20, .color = 128, .bold = true});
  box.SaveFile(storage, folder.path / "out.rtf", RichTextBox::rtfRTF);
  EXPECT_EQ(readFile(folder.path / "out.rtf", "test"),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 Courier "
            "New;}}\r\n{\\colortbl ;\\red128\\green0\\blue0;}\r\n"
            "\\paperw11906\\paperh16838\\margl720\\margr720\\margt720\\margb720\\deftab1080\r\n"
            "\\pard\\plain\\f0\r\n"
            "\\b0\\ul0\\fs23\\cf0 \\{a\\}\\\\\\par\r\n"
            "\\b\\ul0\\fs40\\cf1 \\'1bE\\'e9\\b0\\ul0\\fs23\\cf0 }\r\n");
}

std::string folded(std::string s) {
  for (char& c : s) c = c == 'A' ? 'a' : c == 'B' ? 'b' : c == '\311' ? '\351' : c;
  return s;
}

/// Any sequence of edits and formats gives the same text, lines, looks and finds as a plain list of
/// characters with a format each.
TEST_F(RichText, AgreesWithAPlainListOfCharacters) {
  std::mt19937 random(4);
  const auto below = [&random](std::size_t n) { return n == 0 ? 0 : random() % n; };
  for (int round = 0; round < 60; ++round) {
    std::string text;
    for (std::size_t i = below(400); i > 0; --i) text += "aAbB-\351\311\r\n\f\033"[below(11)];
    box.Text = text;
    std::vector<CharFormat> formats(text.size());
    for (int step = 0; step < 60; ++step) {
      if (text.ends_with('\f')) break;  // it would stay
      const std::size_t begin = below(text.size() + 1);
      const std::size_t end = begin + below(std::min<std::size_t>(text.size() - begin + 1, 20));
      if (random() % 2 == 0) {
        FormatChange change;
        if (random() % 2 == 0) change.size = static_cast<double>(7 + below(3));
        if (random() % 2 == 0) change.bold = random() % 2 == 0;
        box.format(begin, end, change);
        for (std::size_t i = begin; i < end; ++i) formats[i] = change.appliedTo(formats[i]);
      } else {
        const std::string typed = std::string("xyz\n\r\f").substr(0, below(3));
        const CharFormat format = begin > 0           ? formats[begin - 1]
                                  : end < text.size() ? formats[end]
                                  : text.empty()      ? CharFormat{}
                                                      : formats.back();
        box.SelStart = static_cast<std::int64_t>(begin);
        box.SelLength = static_cast<std::int64_t>(end - begin);
        box.typeText(typed);
        text.replace(begin, end - begin, typed);
        const auto at = formats.begin() + static_cast<long>(begin);
        formats.insert(
            formats.erase(at, at + static_cast<long>(end - begin)), typed.size(), format);
      }
    }
    ASSERT_EQ(box.Text, text);
    std::uint64_t line = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      ASSERT_EQ(box.formats().at(i), formats[i]) << i;
      ASSERT_EQ(box.lineFromChar(i), line) << i;
      line += text[i] == '\n' ? 1 : 0;
      ASSERT_EQ(box.lineIndex(line), text.rfind('\n', i) + 1) << i;
    }
    for (int i = 0; i < 20; ++i) {
      std::string needle;
      for (std::size_t k = 1 + below(5); k > 0; --k) needle += "aB-\311"[below(4)];
      const std::size_t found = folded(text).find(folded(needle));
      ASSERT_EQ(box.Find(needle, 0, static_cast<std::int64_t>(text.size())),
                found == std::string::npos ? -1 : static_cast<std::int64_t>(found));
    }
  }
}

TEST(ByteIndex, AgreesAcrossBlocks) {
  constexpr std::size_t kBlock = ByteIndex::kBlock;
  const std::size_t places[] = {0, kBlock - 1, kBlock, 2 * kBlock + 7, 3 * kBlock + 99};
  std::string bytes(3 * kBlock + 100, ' ');
  for (const std::size_t at : places) bytes[at] = '\n';
  const auto text = SharedText::of(bytes);
  for (std::uint64_t i = 0; i < std::size(places); ++i) {
    EXPECT_EQ(text->lineEnds().position(bytes, i), places[i]);
    EXPECT_EQ(text->lineEnds().countBefore(bytes, places[i]), i);
    EXPECT_EQ(text->lineEnds().countBefore(bytes, places[i] + 1), i + 1);
  }
}

}  // namespace
}  // namespace paperway
