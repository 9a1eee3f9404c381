#include <vector>

#include "controls/form.h"
#include "facade/class1_fixture.h"
#include "util/output_file.h"
#include "util/text.h"

namespace paperway {
namespace {

using Utilities = Class1Test;

TEST_F(Utilities, OnlyNumLetsDigitsAndEditingKeysPass) {
  const std::pair<int, int> cases[] = {{48, 48}, {57, 57}, {8, 8},  {13, 13}, {65, 1},
                                       {0, 1},   {47, 1},  {58, 1}, {-48, 1}};
  for (const auto& [key, result] : cases) {
    EXPECT_EQ(class1_.OnlyNum(static_cast<std::int16_t>(key)), result) << key;
  }
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
  const std::array<const char*, 3> cases[] = {{"report.txt", "report.txt", "report"},
                                              {"c:\\a.b\\report.txt", "report.txt", "report"},
                                              {"c:\\b.c.txt", "b.c.txt", "b"},
                                              {"c:\\report", "report", "report"},
                                              {"c:\\reports\\", "", ""},
                                              {"a/b:c.txt", "a/b:c.txt", "a/b:c"},
                                              {"", "", ""},
                                              {".ini", ".ini", ""}};
  for (const auto& [path, name, stem] : cases) {
    EXPECT_EQ(class1_.ParseFileName(path), name);
    EXPECT_EQ(class1_.ParseFileName(path, 1), stem) << path;
    EXPECT_EQ(class1_.ParseFileName(path, 2), name);
  }
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
  const std::tuple<std::int32_t, int, int, int> cases[] = {
      {0, 0, 0, 0},           {255, 255, 0, 0},     {16711680, 0, 0, 255},
      {8388736, 128, 0, 128}, {0x1030201, 1, 2, 3}, {-256, 0, 255, 255}};
  for (const auto& [color, red, green, blue] : cases) {
    EXPECT_EQ(class1_.RgbR(color), red) << color;
    EXPECT_EQ(class1_.RgbG(color), green) << color;
    EXPECT_EQ(class1_.RgbB(color), blue) << color;
  }
}

TEST_F(Utilities, ExtremesOfNumbersAndTextsThatSayOne) {
  EXPECT_EQ(class1_.MaximumValue({3, "7"}), 7);
  EXPECT_EQ(class1_.MaximumValue({-2.5}), -2.5);
  EXPECT_EQ(class1_.MinimamValue(std::vector<ValueView>{3, " -7.5 ", 12.0}), -7.5);
  EXPECT_EQ(errorOf([&] { class1_.MaximumValue({}); }), "Value 1 is missing.");
  EXPECT_EQ(errorOf([&] {
              class1_.MinimamValue({1, "2 kg"});
            }),
            "Value 2 is \"2 kg\", which is no number.");
  EXPECT_EQ(errorOf([&] {
              class1_.MaximumValue({1, 2, ValueView()});
            }),
            "Value 3 is null, which is no number.");
}

TEST_F(Utilities, FilesAndNames) {
  EXPECT_EQ(class1_.UNIQFile(), "5320061479.zip");
  EXPECT_EQ(class1_.TempFolder(), path("temporary"));
  EXPECT_EQ(class1_.TempFile(), path("temporary/TempDir/temp1.tmp"));
  EXPECT_TRUE(class1_.DirExists(path("temporary/TempDir")));
  EXPECT_FALSE(class1_.DirExists(path("temporary/TempDir/temp1.tmp")));
  EXPECT_FALSE(class1_.DirExists(""));
  replaceFile(path("one"), "1", "test");
  class1_.Appendtxt(path("one"), "é€");
  EXPECT_EQ(readFile(path("one"), "test"), "1\xE9\x80");
  EXPECT_EQ(class1_.ShowShortPath(path("./one")), path("one"));
  EXPECT_EQ(class1_.FileCompare_DateLastModified(path("one"), path("one")), 255);
  const std::string missing = "There is no file \"" + path("two") + "\".";
  EXPECT_EQ(errorOf([&] { class1_.ShowShortPath(path("two")); }), missing);
  EXPECT_EQ(errorOf([&] { class1_.Appendtxt(path("two"), "x"); }), missing);
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
