#include "printing/printer_letters.h"

#include "paperway/headless.h"
#include "printed/paper_reader.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using std::string_literals::operator""s;

std::string printed(int table, const std::string& text, std::size_t block) {
  std::string out;
  PrinterLetters letters(table, [&](std::string_view piece) { out += piece; });
  for (std::size_t at = 0; at < text.size(); at += block) letters.block(text.substr(at, block));
  letters.end();
  return out + (letters.plain() == 0 ? "" : "+" + std::to_string(letters.plain()));
}

TEST(PrinterLetters, AreThoseOfTheTable) {
  for (const std::size_t block : {std::size_t{1}, std::size_t{2}, std::size_t{1000}}) {
    const auto sent = [block](int table, const std::string& text) {
      return printed(table, text, block);
    };
    expectEach(sent,
               Row{437, "Cr\xE8me \xA3"s, "Cr\x8Ame \x9C"s},
               Row{437, "\x80uro \x93q\x94 \xC8"s, "Euro \"q\" E+4"s},
               Row{850,
                   "\xC8\xD7\x80"s,
                   "\xD4\x9E"
                   "E+1"s},
               Row{858, "\x80\xC8"s, "\xD5\xD4"s},
               Row{860, "\xC3"s, "\x8E"s},
               Row{863, "\xC8"s, "\x91"s},
               Row{865, "\xD8\xE5"s, "\x9D\x86"s},
               Row{1252, "\xE8\x80"s, "\xE8\x80"s},
               Row{0, "\xE8"s, "\xE8"s},
               // Parameters and data of codes are no letters.
               Row{437,
                   "\033$\xE8\xE9\xE8\033K\002\000\xE8\xE9\xE9"s,
                   "\033$\xE8\xE9\x8A\033K\002\000\xE8\xE9\x82"s},
               Row{437, "\033K\003\000\xE8"s, "\033K\003\000\xE8"s});
  }
}

TEST(PrinterLetters, AreSelectedByCommandsThatAPrinterFollows) {
  struct Tables : PaperSink {
    void text(const PaperText& text) override { table = text.codeTable; }
    void image(const PaperImage&) override {}
    void feed(const PaperFeed&) override {}
    void unknown(const std::string& code, double) override { ADD_FAILURE() << code; }
    int table = 0;
  };
  for (const int table : kPrinterCodePages) {
    Tables tables;
    PaperReader reader(tables, {.codeTable = 0});
    reader.block("\033(t\003\000\001\001\000\033t0"s + selectCodeTable(table) + "\xE8");
    EXPECT_EQ(tables.table, table);
  }
  EXPECT_EQ(selectCodeTable(1252) + selectCodeTable(0), "");
}

TEST(PrinterLetters, AreKeptForEachPrinter) {
  headless::UserStore store;
  EXPECT_EQ(keptCodeTable(store, "Matrix"), 0);
  keepCodeTable(store, "Matrix", 850);
  keepCodeTable(store, "Other", 437);
  EXPECT_EQ(keptCodeTable(store, "Matrix"), 850);
  keepCodeTable(store, "Matrix", 0);
  EXPECT_EQ(keptCodeTable(store, "Matrix"), 0);
  EXPECT_EQ(keptCodeTable(store, "Other"), 437);
}

}  // namespace
}  // namespace paperway
