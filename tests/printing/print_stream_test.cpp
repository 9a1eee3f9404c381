#include "printing/print_stream.h"

#include <random>

#include "paperway/headless.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

std::string streamOf(const std::filesystem::path& path, const PrintStreamSettings& settings) {
  std::string stream;
  headless::Storage storage;
  InputFile file(storage, path, "test");
  writePrintStream(textOf(file), settings, [&](std::string_view piece) { stream += piece; });
  return stream;
}

TEST(PrinterSetup, SendsTheCommandsOfTheJobInOrder) {
  using namespace std::string_literals;
  using Settings = PrintStreamSettings;
  expectEach(
      printerSetup,
      Row{Settings{.paperHeight = 12}, "\033P\033C\0\014\033\031C\033C\0\014"s},
      Row{Settings{.paperHeight = 0, .draft = true}, "\033P\033x\0\033C\0\0\033\031C\033C\0\0"s},
      Row{Settings{.paperHeight = 6, .draft = true, .condensed = true, .semiCondensed = true},
          "\033P\033x\0\022\033W \033M\017\033C\0\006\033\031C\033C\0\006"s},
      Row{Settings{.paperHeight = 0x0104, .linesIn = 3, .linesOut = 2},
          "\033P\033C\0\004\033\031C\033jH\033jH\033jH\033C\0\004"s});
}

TEST(PrinterLines, EndInCrLfButForThoseWithAFormFeed) {
  const auto sent = [](std::string_view text) {
    std::string out;
    PrinterLines lines([&](std::string_view piece) { out += piece; });
    lines.block(text);
    lines.end();
    return out;
  };
  expectEach(sent,
             Row{"", ""},
             Row{"\r\n", "\r\n"},
             Row{"A\r\n\f\r\nB\r\n", "A\r\n\fB\r\n"},
             Row{"\022\f\017\r\nhead\r\n", "\022\f\017head\r\n"},
             Row{"no end", "no end\r\n"},
             Row{"last\f", "last\f"},
             Row{"one\ntwo\n", "one\r\ntwo\r\n"},
             Row{"over\rprint\r\n", "over\rprint\r\n"},
             Row{"\r\r\n\f\f\n", "\r\r\n\f\f"});
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

}  // namespace
}  // namespace paperway
