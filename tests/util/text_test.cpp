#include "util/text.h"

#include <gtest/gtest.h>

#include "support/table.h"
#include "util/code_page.h"

namespace paperway {
namespace {

TEST(Text, CountsAndCutsCharacters) {
  using Row = std::tuple<const char*, std::size_t, std::size_t, const char*, const char*>;
  const auto cases =
      table(Row{"", 0, 2, "", ""}, Row{"ledger", 6, 2, "le", "er"},
            Row{"ledger", 6, 9, "ledger", "ledger"}, Row{"Zoë Åß", 6, 3, "Zoë", " Åß"},
            Row{"€5₹7", 4, 3, "€5₹", "5₹7"}, Row{"a😀b", 3, 2, "a😀", "😀b"},
            Row{"long enough for a word é", 24, 1, "l", "é"}, Row{"\xE2\x82", 2, 1, "\xE2", "\x82"},
            Row{"a\xFF\xC3\xA9", 3, 2, "a\xFF", "\xFF\xC3\xA9"});
  for (const auto& [text, count, wanted, left, right] : cases) {
    EXPECT_EQ(characterCount(text), count) << text;
    EXPECT_EQ(leftCharacters(text, wanted), left);
    EXPECT_EQ(rightCharacters(text, wanted), right);
  }
}

TEST(Text, FindsWhereUtf8Ends) {
  using Row = std::pair<const char*, std::size_t>;
  const auto cases =
      table(Row{"plain", 5}, Row{"é€😀", 9}, Row{"eight by\xE9", 8}, Row{"a\x80", 1},
            Row{"\xC0\x80", 0}, Row{"\xC1\xBF", 0}, Row{"\xE0\x9F\xBF", 0}, Row{"\xED\xA0\x80", 0},
            Row{"\xF0\x8F\xBF\xBF", 0}, Row{"\xF4\x90\x80\x80", 0}, Row{"\xF5\x80\x80\x80", 0},
            Row{"\xE2\x82", 0}, Row{"\xF4\x8F\xBF\xBF", 4}, Row{"ab\xC3(", 2});
  for (const auto& [text, valid] : cases) EXPECT_EQ(validUtf8Length(text), valid) << text;
}

TEST(Text, TrimsBlanksAlone) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks(" \ta\n "), "\ta\n");
  EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Case, PartnersOfLetters) {
  using Row = std::pair<const char*, const char*>;
  const auto cases = table(Row{"AZ09@[", "az09@["}, Row{"ÀÖØÞ", "àöøþ"}, Row{"ŸŠŒŽƑ", "ÿšœžƒ"},
                           Row{"ĀĎĹŇŴŹ", "āďĺňŵź"}, Row{"ΆΈΌΎΏΑΣΫ", "άέόύώασϋ"},
                           Row{"ЀЁЏАЯ", "ѐёџая"}, Row{"ҐӀӁӐ", "ґӏӂӑ"}, Row{"ẠỸ", "ạỹ"});
  for (const auto& [upper, lower] : cases) {
    EXPECT_EQ(upperCase(lower), upper);
    EXPECT_EQ(lowerCase(upper), lower);
    EXPECT_EQ(upperCase(upper), upper);
    EXPECT_EQ(lowerCase(lower), lower);
    EXPECT_TRUE(equalIgnoringCase(upper, lower));
  }
  for (const char* alone : table("×÷ß§µªº", "ıİĸŉſ", "\xE9\xFF")) {
    EXPECT_EQ(upperCase(alone), alone);
    EXPECT_EQ(lowerCase(alone), alone);
  }
  EXPECT_TRUE(equalIgnoringCase("ΟΔΟΣ", "οδος"));
}

TEST(Case, ChangesThereAndBack) {
  for (char32_t c = 0; c < 0x2000; ++c) {
    if (c == U'ς') continue;  // shares its upper letter with σ
    ASSERT_EQ(upperCase(lowerCase(upperCase(c))), upperCase(c)) << std::hex << +c;
    ASSERT_EQ(lowerCase(upperCase(lowerCase(c))), lowerCase(c)) << std::hex << +c;
  }
}

TEST(Case, FindsIgnoringIt) {
  using Row = std::tuple<const char*, const char*, std::size_t, std::size_t>;
  const auto cases = table(
      Row{"Region+Count", "cOUNT", 0, 7}, Row{"aaab", "AAB", 0, 1}, Row{"abab", "AB", 1, 2},
      Row{"ÉTÉ été", "été", 1, 6}, Row{"abc", "", 2, 2}, Row{"abc", "", 3, 3},
      Row{"abc", "", 4, std::string::npos}, Row{"abc", "abcd", 0, std::string::npos},
      Row{"\xE9", "\xEA", 0, std::string::npos}, Row{"\xC3\xA9", "\xA9", 0, std::string::npos});
  for (const auto& [text, part, from, found] : cases) {
    EXPECT_EQ(findIgnoringCase(text, part, from), found) << part;
  }
  EXPECT_FALSE(equalIgnoringCase("abc", "ab"));
  EXPECT_FALSE(equalIgnoringCase("ab", "abc"));
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
  using Row = std::pair<const char*, const char*>;
  const auto cases =
      table(Row{"Zoë costs 5 €", "Zo\xEB costs 5 \x80"},
            Row{"“quoted” – ‰ŸƒŽ", "\x93quoted\x94 \x96 \x89\x9F\x83\x8E"}, Row{"₹ и 😀", "? ? ?"},
            Row{"a\xFFz\xE2\x82", "a?z??"}, Row{"\xC2\x81\xC2\x80", "\x81?"}, Row{"", ""});
  for (const auto& [text, bytes] : cases) {
    EXPECT_EQ(CodePage::windows1252().encode(text), bytes) << text;
  }
  EXPECT_TRUE(CodePage::windows1252().has(U'€'));
  EXPECT_FALSE(CodePage::windows1252().has(U'₹'));
}

}  // namespace
}  // namespace paperway
