#include "util/text.h"

#include <gtest/gtest.h>

#include "util/code_page.h"

namespace paperway {
namespace {

TEST(Text, CountsAndCutsCharacters) {
  const struct {
    const char* text;
    std::size_t count, wanted;
    const char *left, *right;
  } cases[] = {{"", 0, 2, "", ""},
               {"ledger", 6, 2, "le", "er"},
               {"ledger", 6, 9, "ledger", "ledger"},
               {"Zoë Åß", 6, 3, "Zoë", " Åß"},
               {"€5₹7", 4, 3, "€5₹", "5₹7"},
               {"a😀b", 3, 2, "a😀", "😀b"},
               {"long enough for a word é", 24, 1, "l", "é"},
               {"\xE2\x82", 2, 1, "\xE2", "\x82"},
               {"a\xFF\xC3\xA9", 3, 2, "a\xFF", "\xFF\xC3\xA9"}};
  for (const auto& each : cases) {
    EXPECT_EQ(characterCount(each.text), each.count) << each.text;
    EXPECT_EQ(leftCharacters(each.text, each.wanted), each.left);
    EXPECT_EQ(rightCharacters(each.text, each.wanted), each.right);
  }
}

TEST(Text, FindsWhereUtf8Ends) {
  const struct {
    const char* text;
    std::size_t valid;
  } cases[] = {{"plain", 5},
               {"é€😀", 9},
               {"eight by\xE9", 8},
               {"a\x80", 1},
               {"\xC0\x80", 0},
               {"\xC1\xBF", 0},
               {"\xE0\x9F\xBF", 0},
               {"\xED\xA0\x80", 0},
               {"\xF0\x8F\xBF\xBF", 0},
               {"\xF4\x90\x80\x80", 0},
               {"\xF5\x80\x80\x80", 0},
               {"\xE2\x82", 0},
               {"\xF4\x8F\xBF\xBF", 4},
               {"ab\xC3(", 2}};
  for (const auto& each : cases) EXPECT_EQ(validUtf8Length(each.text), each.valid) << each.text;
}

TEST(Text, TrimsBlanksAlone) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks(" \ta\n "), "\ta\n");
  EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Case, PartnersOfLetters) {
  const struct {
    const char *upper, *lower;
  } cases[] = {
      {"AZ09@[", "az09@["},     {"ÀÖØÞ", "àöøþ"},   {"ŸŠŒŽƑ", "ÿšœžƒ"}, {"ĀĎĹŇŴŹ", "āďĺňŵź"},
      {"ΆΈΌΎΏΑΣΫ", "άέόύώασϋ"}, {"ЀЁЏАЯ", "ѐёџая"}, {"ҐӀӁӐ", "ґӏӂӑ"},   {"ẠỸ", "ạỹ"}};
  for (const auto& each : cases) {
    EXPECT_EQ(upperCase(each.lower), each.upper);
    EXPECT_EQ(lowerCase(each.upper), each.lower);
    EXPECT_EQ(upperCase(each.upper), each.upper);
    EXPECT_EQ(lowerCase(each.lower), each.lower);
    EXPECT_TRUE(equalIgnoringCase(each.upper, each.lower));
  }
  for (const char* alone : {"×÷ß§µªº", "ıİĸŉſ", "\xE9\xFF"}) {
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
  const struct {
    const char *text, *part;
    std::size_t from, found;
  } cases[] = {{"Region+Count", "cOUNT", 0, 7},
               {"aaab", "AAB", 0, 1},
               {"abab", "AB", 1, 2},
               {"ÉTÉ été", "été", 1, 6},
               {"abc", "", 2, 2},
               {"abc", "", 3, 3},
               {"abc", "", 4, std::string::npos},
               {"abc", "abcd", 0, std::string::npos},
               {"\xE9", "\xEA", 0, std::string::npos},
               {"\xC3\xA9", "\xA9", 0, std::string::npos}};
  for (const auto& each : cases) {
    EXPECT_EQ(findIgnoringCase(each.text, each.part, each.from), each.found) << each.part;
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
  const struct {
    const char *text, *bytes;
  } cases[] = {{"Zoë costs 5 €", "Zo\xEB costs 5 \x80"},
               {"“quoted” – ‰ŸƒŽ", "\x93quoted\x94 \x96 \x89\x9F\x83\x8E"},
               {"₹ и 😀", "? ? ?"},
               {"a\xFFz\xE2\x82", "a?z??"},
               {"\xC2\x81\xC2\x80", "\x81?"},
               {"", ""}};
  for (const auto& each : cases) {
    EXPECT_EQ(CodePage::windows1252().encode(each.text), each.bytes) << each.text;
  }
  EXPECT_TRUE(CodePage::windows1252().has(U'€'));
  EXPECT_FALSE(CodePage::windows1252().has(U'₹'));
}

}  // namespace
}  // namespace paperway
