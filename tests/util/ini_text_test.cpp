#include "util/ini_text.h"

#include "support/expect_each.h"

namespace paperway {
namespace {

TEST(IniText, AWriteGivesTheseBytes) {
  const auto write =
      [](std::string_view file, const char* section, const char* key, const char* value) {
        const std::string after = withSetting(file, section, key, value);
        EXPECT_EQ(findSetting(after, section, key), value) << after;
        return after;
      };
  expectEach(write,
             Row{"", "S", "k", "v", "[S]\r\nk=v\r\n"},
             Row{"[S]\r\na=1\r\n", "s", "B", "", "[S]\r\nB=\r\na=1\r\n"},
             Row{"[S]\r\ncond=1\r\nb=2\r\n", "S", "Cond", "3", "[S]\r\nCond=3\r\nb=2\r\n"},
             Row{"[S]\r\na=1\r\nk=2", "S", "k", "3", "[S]\r\na=1\r\nk=3\r\n"},
             Row{"[S]\r\na=1\r\n", "T", "a", "2", "[S]\r\na=1\r\n\r\n[T]\r\na=2\r\n"},
             Row{"[S]\r\n\r\n[T]\r\nk=1\r\n", "S", "k", "2", "[S]\r\nk=2\r\n\r\n[T]\r\nk=1\r\n"},
             Row{"[S]\r\na=[\r\nk=1\r\n", "S", "k", "2", "[S]\r\nk=2\r\na=[\r\nk=1\r\n"},
             Row{"\r\n\r\n[S]\r\na=1\r\n\r\n\r\n\r\n[T]\r\n\r\n",
                 "S",
                 "a",
                 "2",
                 "[S]\r\na=2\r\n\r\n[T]\r\n"},
             Row{"[S] \r\na=1\r\n", "S", "a", "2", "[S] \r\na=1\r\n\r\n[S]\r\na=2\r\n"},
             Row{"[S]", "S", "a", "2", "[S]\r\n\r\n[S]\r\na=2\r\n"},
             Row{"[S]\r\nkk=1\r\n k=2\r\n", "S", "k", "3", "[S]\r\nk=3\r\nkk=1\r\n k=2\r\n"},
             Row{"[\xC4]\r\n\xD6=1\r\n", "\xE4", "\xF6", "2", "[\xC4]\r\n\xF6=2\r\n"},
             Row{"note\r\n[S]\r\na=1\r\n", "S", "b", "a=1 ", "note\r\n[S]\r\nb=a=1 \r\na=1\r\n"},
             Row{"[S]\na=1\nb=3\n", "S", "a", "2", "[S]\na=2\nb=3\r\n"},
             Row{"[S]\na=1\n\n\n\n[T]\n", "S", "b", "2", "[S]\nb=2\r\na=1\n\n[T]\r\n"},
             Row{"[S]\ra=1\r\n", "S", "a", "2", "[S]\ra=1\r\n\r\n[S]\r\na=2\r\n"},
             Row{"[S]\r\na=1\r2\r\n", "S", "a", "3", "[S]\r\na=3\r\n"});
}

TEST(IniText, AReadFinds) {
  const char file[] =
      "k=0\r\n[S]\r\nA b= x = y \r\nempty=\r\n\r\nbelow blank=1\r\nlist=[1]\r\nhidden=1\r\n"
      "[S] \r\nk=2\r\n[T]\r\nk=3\r\n[s]\r\nhidden=again\nlast=1\r2\r";
  const auto find = [&](const char* section, const char* key) {
    return findSetting(file, section, key);
  };
  expectEach(find,
             Row{"s", "a B", " x = y "},
             Row{"S", "Empty", ""},
             Row{"S", "below blank", "1"},
             Row{"S", "list", std::nullopt},
             Row{"S", "k", std::nullopt},
             Row{"S", "hidden", "again"},
             Row{"T", "k", "3"},
             Row{"S", "last", "1\r2\r"},
             Row{"", "k", std::nullopt},
             Row{"S", "a", std::nullopt},
             Row{"S] ", "k", std::nullopt});
}

}  // namespace
}  // namespace paperway
