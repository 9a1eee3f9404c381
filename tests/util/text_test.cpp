#include "util/text.h"

#include "support/expect_each.h"
#include "util/code_page.h"

namespace paperway {
namespace {

TEST(Text, CountsAndCutsCharacters) {
  const auto cut = [](std::string_view text, std::size_t at) {
    return std::to_string(characterCount(text)) + ": " + std::string(leftCharacters(text, at)) +
           "|" + std::string(rightCharacters(text, at));
  };
  expectEach(cut,
             Row{"", 2, "0: |"},
             Row{"ledger", 2, "6: le|er"},
             Row{"ledger", 9, "6: ledger|ledger"},
             Row{"€5₹7", 3, "4: €5₹|5₹7"},
             Row{"a😀b", 2, "3: a😀|😀b"},
             Row{"long enough for a word é", 1, "24: l|é"},
             Row{"\xE2\x82", 1, "2: \xE2|\x82"},
             Row{"a\xFF\xC3\xA9", 2, "3: a\xFF|\xFF\xC3\xA9"});
}

TEST(Text, FindsWhereUtf8Ends) {
  expectEach(validUtf8Length,
             Row{"plain", 5},
             Row{"é€😀", 9},
             Row{"eight by\xE9", 8},
             Row{"a\x80", 1},
             Row{"\xC0\x80", 0},
             Row{"\xC1\xBF", 0},
             Row{"\xE0\x9F\xBF", 0},
             Row{"\xED\xA0\x80", 0},
             Row{"\xF0\x8F\xBF\xBF", 0},
             Row{"\xF4\x90\x80\x80", 0},
             Row{"\xF5\x80\x80\x80", 0},
             Row{"\xE2\x82", 0},
             Row{"\xF4\x8F\xBF\xBF", 4},
             Row{"ab\xC3(", 2});
}

TEST(Text, FindsAByteThatDoesNotPrintWhereverItStands) {
  for (const char byte : {'\x1F', '\x7F', '\x80'}) {
    for (std::size_t length = 1; length <= 20; ++length) {
      for (std::size_t at = 0; at < length; ++at) {
        std::string text(length, at % 2 == 0 ? ' ' : '~');
        ASSERT_TRUE(isPrintableAscii(text));
        text[at] = byte;
        EXPECT_FALSE(isPrintableAscii(text)) << at << " of " << length;
        EXPECT_EQ(isAscii(text), byte != '\x80') << at << " of " << length;
      }
    }
  }
}

TEST(Text, TrimsBlanksAlone) {
  expectEach(trimBlanks, Row{"  a b  ", "a b"}, Row{" \ta\n ", "\ta\n"}, Row{"   ", ""});
}

TEST(Case, PartnersOfLetters) {
  const std::string upper = "AZ09@[ÀÖØÞŸŠŒŽƑĀĎĹŇŴŹΆΈΌΎΏΑΣΫЀЁЏАЯҐӀӁӐẠỸ";
  const std::string lower = "az09@[àöøþÿšœžƒāďĺňŵźάέόύώασϋѐёџаяґӏӂӑạỹ";
  for (const std::string& text : {upper, lower}) {
    EXPECT_EQ(upperCase(text), upper);
    EXPECT_EQ(lowerCase(text), lower);
  }
  for (const char* alone : table("×÷ß§µªº", "ıİĸŉſ", "\xE9\xFF")) {
    EXPECT_EQ(upperCase(alone), alone);
    EXPECT_EQ(lowerCase(alone), alone);
  }
  expectEach(equalIgnoringCase,
             Row{upper, lower, true},
             Row{"ΟΔΟΣ", "οδος", true},
             Row{"abc", "ab", false},
             Row{"ab", "abc", false});
}

TEST(Case, FindsIgnoringIt) {
  expectEach(findIgnoringCase,
             Row{"Region+Count", "cOUNT", 0, 7},
             Row{"aaab", "AAB", 0, 1},
             Row{"abab", "AB", 1, 2},
             Row{"ÉTÉ été", "été", 1, 6},
             Row{"abc", "", 2, 2},
             Row{"abc", "", 3, 3},
             Row{"abc", "", 4, std::string::npos},
             Row{"abc", "abcd", 0, std::string::npos},
             Row{"\xE9", "\xEA", 0, std::string::npos},
             Row{"\xC3\xA9", "\xA9", 0, std::string::npos});
}

TEST(CodePage, MapsAllCodesBothWays) {
  const CodePage& page = CodePage::windows1252();
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  const std::string text = page.decode(bytes);
  EXPECT_EQ(validUtf8Length(text), text.size());
  EXPECT_EQ(characterCount(text), 256u);
  EXPECT_EQ(page.encode(text), bytes);
}

TEST(CodePage, EncodesWhatItHas) {
  const CodePage& page = CodePage::windows1252();
  expectEach([&](std::string_view text) { return page.encode(text); },
             Row{"Zoë costs 5 €", "Zo\xEB costs 5 \x80"},
             Row{"“quoted” – ‰ŸƒŽ", "\x93quoted\x94 \x96 \x89\x9F\x83\x8E"},
             Row{"₹ и 😀", "? ? ?"},
             Row{"a\xFFz\xE2\x82", "a?z??"},
             Row{"\xC2\x81\xC2\x80", "\x81?"},
             Row{"", ""});
  EXPECT_TRUE(page.has(U'€'));
  EXPECT_FALSE(page.has(U'₹'));
}

}  // namespace
}  // namespace paperway
