#include "printing/print_stream.h"

#include <gtest/gtest.h>
#include <random>

#include "support/test_folder.h"
#include "util/automation_error.h"
#include "util/output_file.h"

namespace paperway {
namespace {

std::string streamOf(const std::filesystem::path& file, const PrintStreamSettings& settings) {
  std::string stream;
  writePrintStream(file, settings, [&](std::string_view piece) { stream += piece; });
  return stream;
}

TEST(PrinterSetup, SendsTheCommandsOfTheJobInOrder) {
  const std::pair<PrintStreamSettings, const char*> cases[] = {
      {{.paperHeight = 12}, "1B50 1B43000C 1B1943 1B43000C"},
      {{.paperHeight = 0, .draft = true}, "1B50 1B7800 1B430000 1B1943 1B430000"},
      {{.paperHeight = 6, .draft = true, .condensed = true, .semiCondensed = true},
       "1B50 1B7800 121B57201B4D 0F 1B430006 1B1943 1B430006"},
      {{.paperHeight = 0x0104, .linesIn = 3, .linesOut = 2},
       "1B50 1B430004 1B1943 1B6A48 1B6A48 1B6A48 1B430004"}};
  for (const auto& [settings, digits] : cases) {
    std::string bytes;
    std::string hex = digits;
    std::erase(hex, ' ');
    for (std::size_t at = 0; at < hex.size(); at += 2) {
      bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    }
    EXPECT_EQ(printerSetup(settings), bytes);
  }
}

TEST(PrinterLines, EndInCrLfButForThoseWithAFormFeed) {
  const std::pair<std::string, const char*> cases[] = {
      {"", ""},
      {"\r\n", "\r\n"},
      {"A\r\n\f\r\nB\r\n", "A\r\n\fB\r\n"},
      {"\x12\f\x0F\r\nhead\r\n", "\x12\f\x0Fhead\r\n"},
      {"no end", "no end\r\n"},
      {"last\f", "last\f"},
      {"one\ntwo\n", "one\r\ntwo\r\n"},
      {"over\rprint\r\n", "over\rprint\r\n"},
      {"\r\r\n\f\f\n", "\r\r\n\f\f"}};
  for (const auto& [text, sent] : cases) {
    for (const std::size_t block : {1, 2, 3, 100}) {
      std::string out;
      PrinterLines lines([&](std::string_view piece) { out += piece; });
      for (std::size_t at = 0; at < text.size(); at += block) lines.block(text.substr(at, block));
      lines.end();
      EXPECT_EQ(out, sent) << text << " in blocks of " << block;
    }
  }
}

// The rule once more, line by line on a whole text.
std::string plainLines(const std::string& text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string line = text.substr(at, end - at);
    if (end < text.size() && line.ends_with('\r')) line.pop_back();
    out += line;
    if (line.find('\f') == std::string::npos) out += "\r\n";
    at = end + 1;
  }
  return out;
}

TEST(PrintStream, IsTheSetUpTheFileForEachCopyAndTheFeed) {
  TestFolder folder;
  const std::filesystem::path file = folder.path / "report.txt";
  std::mt19937 random(7);
  const std::string alphabet = "abc \r\n\n\f\x1B\xE9";
  for (int round = 0; round < 200; ++round) {
    std::string text(random() % (round % 50 == 0 ? 300'000 : 60), ' ');
    const std::size_t letters = alphabet.size() - random() % 2 * 5;
    for (char& c : text) c = alphabet[random() % letters];
    replaceFile(file, text, "test");
    const PrintStreamSettings settings{.paperHeight = static_cast<std::int16_t>(random() % 13),
                                       .draft = random() % 2 == 0,
                                       .condensed = random() % 2 == 0,
                                       .semiCondensed = random() % 2 == 0,
                                       .copies = static_cast<std::uint8_t>(random() % 4),
                                       .linesIn = static_cast<std::uint8_t>(random() % 18),
                                       .linesOut = static_cast<std::uint8_t>(random() % 26)};
    std::string expected = printerSetup(settings);
    for (int copy = 0; copy < settings.copies; ++copy) expected += plainLines(text);
    for (int line = 0; line < settings.linesOut; ++line) expected += std::string(40, ' ') + "\r\n";
    ASSERT_TRUE(streamOf(file, settings) == expected) << "round " << round;
  }
}

TEST(PrintStream, NamesAFileThatCannotBeRead) {
  EXPECT_THROW(streamOf("/no/such/file", {}), AutomationError);
  EXPECT_EQ(streamOf("/no/such/file", {.copies = 0}), printerSetup({}));
}

}  // namespace
}  // namespace paperway
