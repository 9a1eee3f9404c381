#include <vector>

#include "controls/form.h"
#include "support/class1_test.h"
#include "support/expect_each.h"
#include "util/text.h"

namespace paperway {
namespace {

using Utilities = Class1Test;

TEST_F(Utilities, OnlyNumLetsDigitsAndEditingKeysPass) {
  expectEach([&](std::int16_t key) { return class1_.OnlyNum(key); },
             Row{48, 48},
             Row{57, 57},
             Row{8, 8},
             Row{13, 13},
             Row{65, 1},
             Row{0, 1},
             Row{47, 1},
             Row{58, 1},
             Row{-48, 1});
}

TEST_F(Utilities, TextFunctions) {
  EXPECT_EQ(class1_.ReverseName("añ₹\xFFz"), "z\xFF₹ña");
  EXPECT_EQ(class1_.ReverseName(""), "");
  EXPECT_EQ(class1_.Allow_Only_azAZ_01(" a-b\tZé|9_\n "), " abZ|9 ");
  EXPECT_EQ(class1_.UniToHex("abc"), "&#97;&#98;&#99;");
  EXPECT_EQ(class1_.UniToHex("é耀\U0001F600"), "&#233;&#-32768;&#-10179;&#-8704;");
  EXPECT_EQ(class1_.UniToHex(12), "&#49;&#50;");
  EXPECT_EQ(class1_.UniToHex({}), "");
}

TEST_F(Utilities, ParseFileName) {
  const auto parts = [&](const char* path) {
    EXPECT_EQ(class1_.ParseFileName(path, 2), class1_.ParseFileName(path));
    return class1_.ParseFileName(path) + "|" + class1_.ParseFileName(path, 1);
  };
  expectEach(parts,
             Row{"report.txt", "report.txt|report"},
             Row{"c:\\report", "report|report"},
             Row{"c:\\a.b\\report.txt", "report.txt|report"},
             Row{"c:\\b.c.txt", "b.c.txt|b"},
             Row{"c:\\reports\\", "|"},
             Row{"a/b:c.txt", "a/b:c.txt|a/b:c"},
             Row{"", "|"},
             Row{".ini", ".ini|"});
}

TEST_F(Utilities, EncryptTextShiftsByThePasswordAndDecryptTextBack) {
  EXPECT_EQ(class1_.EncryptText("AAA", "\x01\x02"), "CBC");
  EXPECT_EQ(class1_.EncryptText("AB", "\x01"), "BC");
  EXPECT_EQ(class1_.EncryptText("\xC2\x81", "\x7F"), std::string(1, '\0'));  // 129 + 127 = 256
  EXPECT_EQ(class1_.DecryptText("A", "B"), "ÿ");
  std::string all;
  for (char32_t code = 0; code < 128; ++code) appendCharacter(all, code);
  all += "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
  for (char32_t code = 160; code < 256; ++code) appendCharacter(all, code);
  for (const std::string& password : {std::string("x"), std::string("Pässword"), all}) {
    const std::string secret = class1_.EncryptText(all, password);
    EXPECT_NE(secret, all);
    EXPECT_EQ(characterCount(secret), 256U);
    EXPECT_EQ(class1_.DecryptText(secret, password), all);
  }
  EXPECT_EQ(class1_.EncryptText("₹ any", ""), "₹ any");
  EXPECT_EQ(class1_.EncryptText("", "x"), "");
  EXPECT_EQ(errorOf([&] { class1_.EncryptText(std::string(32768, 'a'), "x"); }),
            "strText has 32768 characters; 32767 are the most.");
}

TEST_F(Utilities, ColourBytes) {
  const auto parts = [&](std::int32_t color) {
    return std::vector<int>{class1_.RgbR(color), class1_.RgbG(color), class1_.RgbB(color)};
  };
  expectEach(parts,
             Row{8388736, std::vector{128, 0, 128}},
             Row{0x1030201, std::vector{1, 2, 3}},
             Row{-256, std::vector{0, 255, 255}});
}

TEST_F(Utilities, ExtremesOfNumbersAndTextsThatSayOne) {
  EXPECT_EQ(class1_.MaximumValue({3, "7"}), 7);
  EXPECT_EQ(class1_.MaximumValue({-2.5}), -2.5);
  EXPECT_EQ(class1_.MinimamValue(std::vector<ValueView>{3, " -7.5 ", 12.0}), -7.5);
  const auto refusal = [&](const std::vector<ValueView>& values) {
    return errorOf([&] { class1_.MaximumValue(values); });
  };
  EXPECT_EQ(refusal({}), "Value 1 is missing.");
  EXPECT_EQ(refusal({1, "2 kg"}), "Value 2 is \"2 kg\", which is no number.");
  EXPECT_EQ(refusal({1, 2, ValueView()}), "Value 3 is null, which is no number.");
}

TEST_F(Utilities, FilesAndNames) {
  EXPECT_EQ(class1_.UNIQFile(), "5320061479.zip");
  EXPECT_EQ(class1_.TempFolder(), path("temporary"));
  EXPECT_EQ(class1_.TempFile(), path("temporary/TempDir/temp1.tmp"));
  EXPECT_TRUE(class1_.DirExists(path("temporary/TempDir")));
  EXPECT_FALSE(class1_.DirExists(path("temporary/TempDir/temp1.tmp")));
  replaceFile(path("one"), "1", "test");
  class1_.Appendtxt(path("one"), "é€");
  EXPECT_EQ(bytesOf(path("one")), "1\xE9\x80");
  EXPECT_EQ(class1_.ShowShortPath(path("./one")), path("one"));
  EXPECT_EQ(class1_.FileCompare_DateLastModified(path("one"), path("one")), 255);
  const std::string missing = "There is no file \"" + path("two") + "\".";
  EXPECT_EQ(errorOf([&] { class1_.FileCompare_DateLastModified(path("one"), path("two")); }),
            missing);
  machine_.names.computer = std::string("  PC 7\0 ", 8);
  machine_.names.user = "";
  EXPECT_EQ(class1_.Get_CoputerName(), "PC 7");
  EXPECT_EQ(class1_.Get_UserName(), "");
}

TEST_F(Utilities, TheHostsOwnFileSystemIsUsed) {
  headless::FileSystem own(path("own"));
  class1_.scr1 = &own;
  EXPECT_EQ(class1_.TempFolder(), path("own"));
  EXPECT_TRUE(machine_.files.calls.empty());
}

TEST_F(Utilities, CentScrLeavesRoomBelow) {
  machine_.windows.screenSize = {15360, 11520};
  Geometry window{0, 0, 5360, 3520};
  class1_.cent_scr(window);
  EXPECT_EQ(window.Left, 5000);
  EXPECT_EQ(window.Top, 3600);
}

}  // namespace
}  // namespace paperway
