#include "util/ini_text.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace paperway {
namespace {

TEST(IniText, AWriteGivesTheseBytes) {
  struct Case {
    const char* before;
    const char* setting[3];
    const char* after;
  };
  const Case cases[] = {
      {"", {"S", "k", "v"}, "[S]\r\nk=v\r\n"},
      {"[S]\r\na=1\r\n", {"s", "B", ""}, "[S]\r\nB=\r\na=1\r\n"},
      {"[S]\r\ncond=1\r\nb=2\r\n", {"S", "Cond", "3"}, "[S]\r\nCond=3\r\nb=2\r\n"},
      {"[S]\r\na=1\r\nk=2", {"S", "k", "3"}, "[S]\r\na=1\r\nk=3\r\n"},
      {"[S]\r\na=1\r\n", {"T", "a", "2"}, "[S]\r\na=1\r\n\r\n[T]\r\na=2\r\n"},
      {"[S]\r\n\r\n[T]\r\nk=1\r\n", {"S", "k", "2"}, "[S]\r\nk=2\r\n\r\n[T]\r\nk=1\r\n"},
      {"[S]\r\na=[\r\nk=1\r\n", {"S", "k", "2"}, "[S]\r\nk=2\r\na=[\r\nk=1\r\n"},
      {"\r\n\r\n[S]\r\na=1\r\n\r\n\r\n\r\n[T]\r\n\r\n",
       {"S", "a", "2"},
       "[S]\r\na=2\r\n\r\n[T]\r\n"},
      {"[S] \r\na=1\r\n", {"S", "a", "2"}, "[S] \r\na=1\r\n\r\n[S]\r\na=2\r\n"},
      {"[S]", {"S", "a", "2"}, "[S]\r\n\r\n[S]\r\na=2\r\n"},
      {"[S]\r\nkk=1\r\n k=2\r\n", {"S", "k", "3"}, "[S]\r\nk=3\r\nkk=1\r\n k=2\r\n"},
      {"[\xC4]\r\n\xD6=1\r\n", {"\xE4", "\xF6", "2"}, "[\xC4]\r\n\xF6=2\r\n"},
      {"note\r\n[S]\r\na=1\r\n", {"S", "b", "a=1 "}, "note\r\n[S]\r\nb=a=1 \r\na=1\r\n"},
      {"[S]\na=1\n", {"S", "a", "2"}, "[S]\na=1\n\r\n\r\n[S]\r\na=2\r\n"},
  };
  for (const Case& c : cases) {
    const auto& [section, key, value] = c.setting;
    EXPECT_EQ(withSetting(c.before, section, key, value), c.after);
    EXPECT_EQ(findSetting(c.after, section, key), value) << c.after;
  }
}

TEST(IniText, AReadFinds) {
  const char file[] =
      "k=0\r\n[S]\r\nA b= x = y \r\nempty=\r\n\r\nbelow blank=1\r\nlist=[1]\r\nhidden=1\r\n"
      "[S] \r\nk=2\r\n[T]\r\nk=3\r\n[s]\r\nhidden=again\rlast=1";
  const std::tuple<const char*, const char*, std::optional<std::string>> cases[] = {
      {"s", "a B", " x = y "}, {"S", "Empty", ""}, {"S", "below blank", "1"},
      {"S", "list", {}},       {"S", "k", {}},     {"S", "hidden", "again"},
      {"T", "k", "3"},         {"S", "last", "1"}, {"", "k", {}},
      {"S", "a", {}},          {"S] ", "k", {}}};
  for (const auto& [section, key, value] : cases) {
    EXPECT_EQ(findSetting(file, section, key), value) << section << " " << key;
  }
}

TEST(IniText, ARandomSequenceOfWritesReadsLikeAMap) {
  std::mt19937 random(20060305);
  const auto pick = [&](std::size_t count) { return random() % count; };
  const std::string names[] = {"ReportView", "A", "b", "key ", " x=", "\xC4hre"};
  std::map<std::pair<std::size_t, std::size_t>, std::string> expected;
  std::string file;
  for (int step = 0; step < 2000; ++step) {
    const std::size_t section = pick(std::size(names));
    const std::size_t key = pick(std::size(names));
    std::string value(pick(6), ' ');
    for (char& c : value) c = "ab=]; \xFF\t0"[pick(9)];
    if (!value.empty() && value.back() == '\t') value += '.';
    file = withSetting(file, names[section], names[key], value);
    expected[{section, key}] = value;
  }
  for (const auto& [place, value] : expected) {
    EXPECT_EQ(findSetting(file, names[place.first], names[place.second]), value);
  }
  EXPECT_EQ(expected.size(), std::size(names) * std::size(names));
}

}  // namespace
}  // namespace paperway
