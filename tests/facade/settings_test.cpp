#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "paperway/storage.h"
#include "session/settings_store.h"
#include "support/class1_test.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

class Settings : public Class1Test {
 protected:
  std::string file_ = path("own.ini");
  std::string bytes() const { return bytesOf(file_); }
};

TEST_F(Settings, AreReadAndWrittenInTheHostsFile) {
  EXPECT_EQ(class1_.ReadIniValue(file_, "S", "k", "default €"), "default €");
  EXPECT_EQ(bytes(), "");
  class1_.WriteIniValue(file_, "S", "Größt", "5 €");
  EXPECT_EQ(bytes(), "[S]\r\nGr\xF6\xDFt=5 \x80\r\n");
  EXPECT_EQ(class1_.ReadIniValue(file_, "s", "GRÖßT", ""), "5 €");
  EXPECT_EQ(class1_.ReadIniValue(file_, "s", "क", "none"), "none");
}

TEST_F(Settings, AReadTakesTheReadOnlyMarkOff) {
  replaceFile(file_, "[S]\r\nk=1\r\n", "test");
  fs::permissions(file_, fs::perms::owner_read | fs::perms::group_read);
  EXPECT_EQ(class1_.ReadIniValue(file_, "S", "k", ""), "1");
  EXPECT_EQ(fs::status(file_).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(Settings, WhatAFileCannotHoldIsRefusedAndTheFileStays) {
  class1_.WriteIniValue(file_, "S", "k", "1");
  const std::string before = bytes();
  const std::string lineEnd = " holds a line end, which a settings file cannot hold.";
  const auto refusal = [&](const auto&... texts) {
    const std::string error = errorOf([&] { class1_.WriteIniValue(file_, texts...); });
    EXPECT_EQ(bytes(), before) << error;
    return error;
  };
  expectEach(refusal,
             Row{"S\r", "k", "2", "PutKey" + lineEnd},
             Row{"S", "k\nx", "2", "PutVariable" + lineEnd},
             Row{"S", "k", "2\r\n", "PutValue" + lineEnd},
             Row{"S", "k", "₹ 2", "PutValue holds \"₹\", which a settings file cannot hold."},
             Row{"S",
                 "k",
                 std::string(32758, 'x'),
                 "\"" + file_ + "\" would have 32767 characters; 32766 are the most."});
  class1_.WriteIniValue(file_, "S", "k", std::string(32757, 'x'));
  EXPECT_EQ(bytes().size(), 32766U);
}

TEST_F(Settings, TearLinesAreTwoDigitsEach) {
  const auto inAndOut = [](const char* text) {
    const TearLines lines = TearLines::fromText(text);
    return std::pair<int, int>(lines.in, lines.out);
  };
  expectEach(inAndOut,
             Row{"0305", std::pair(3, 5)},
             Row{"0", std::pair(0, 0)},
             Row{"", std::pair(0, 0)},
             Row{"7", std::pair(70, 7)},
             Row{"x5", std::pair(0, 0)},
             Row{"305", std::pair(30, 5)});
  expectEach(TearLines::toText, Row{"3", "25", "0325"}, Row{"", "117", "0017"});
}

TEST_F(Settings, OfTheReportViewHaveDefaultsAndKeepTheirSpelling) {
  const ReportViewSettings settings(machine_.storage, file_);
  EXPECT_EQ(settings.color(ReportViewKey::Cond), 8388736U);
  EXPECT_EQ(settings.text(ReportViewKey::PrnDefult), "D");
  EXPECT_TRUE(settings.flag(ReportViewKey::chSearch));
  replaceFile(file_, "[reportview]\r\ncond=1\r\nbold=red\r\nchsearch=2\r\n", "test");
  EXPECT_EQ(settings.color(ReportViewKey::Bold), 128U);
  EXPECT_TRUE(settings.flag(ReportViewKey::chSearch));
  const ReportViewSettings before = settings.snapshot();
  settings.setColor(ReportViewKey::Cond, 0xFFFFFF);
  EXPECT_EQ(before.color(ReportViewKey::Cond), 1U);
  settings.setFlag(ReportViewKey::chSearch, false);
  settings.setText(ReportViewKey::Ttt, TearLines::toText("3", "5"));
  EXPECT_EQ(settings.tearLines().out, 5);
  EXPECT_EQ(bytes(), "[reportview]\r\nTtt=0305\r\nCond=16777215\r\nbold=red\r\nchSearch=0\r\n");
}

/// A program that writes texts of one letter, of changing lengths, until it is killed.
pid_t startWriter(const std::string& file, char value) noexcept {
  const pid_t writer = fork();
  if (writer != 0) return writer;
  desktop::Storage storage;
  for (std::size_t length = 0;; length = (length + 997) % 30000) {
    WriteIniValue(storage, file, "S", "k", std::string(length, value));
  }
}

TEST_F(Settings, AreWholeWheneverTheirWritersAreKilled) {
  class1_.WriteIniValue(file_, "S", "k", "");
  for (int round = 0; round < 20; ++round) {
    const pid_t writers[] = {startWriter(file_, 'a'), startWriter(file_, 'b')};
    for (int reads = 0; reads < 10 * round; ++reads) {
      const std::string file = bytes();
      const std::string value = class1_.ReadIniValue(file_, "S", "k", "missing");
      ASSERT_EQ(value.find_first_not_of(value.substr(0, 1)), value.npos) << value;
      ASSERT_TRUE(file.starts_with("[S]\r\nk=") && file.ends_with("\r\n")) << file;
    }
    for (const pid_t writer : writers) {
      kill(writer, SIGKILL);
      waitpid(writer, nullptr, 0);
    }
  }
  class1_.WriteIniValue(file_, "S", "k", "last");
  EXPECT_EQ(bytes(), "[S]\r\nk=last\r\n");
}

}  // namespace
}  // namespace paperway
