#include "printed/printed_reader.h"

#include <cmath>

#include "support/expect_each.h"

namespace paperway {
namespace {

/// The events as a line: text with its column at ten to the inch, codes as their length.
struct Told {
  std::string events;
  bool inText = false;

  void text(std::string_view bytes, const Pen& pen) {
    if (!inText) events += std::to_string(std::lround(pen.left() * 10)) + style(pen);
    events += bytes;
    inText = true;
  }
  void code(std::string_view bytes, const Pen&) { add(std::to_string(bytes.size()) + "!"); }
  bool lineEnd(const Pen&) {
    add("/");
    return true;
  }
  void pageEnd(const Pen&) { add("#"); }

  void add(const std::string& event) {
    events += " " + event + " ";
    inText = false;
  }
  static std::string style(const Pen& pen) {
    const PrintedStyle& style = pen.style();
    return std::string(style.bold ? "*" : "") + (style.doubleStrike ? "+" : "") +
           (style.italic ? "~" : "") + (style.underline ? "_" : "");
  }
};

std::string told(std::string_view text) {
  Told sink;
  PrintedReader reader(sink);
  reader.block(text);
  reader.end();
  return sink.events;
}

TEST(PrintedReader, TellsTextAndWhereItStands) {
  const auto events = [](const std::string& text) { return told(text); };
  expectEach(events,
             Row{"", ""},
             Row{"ab\r\ncd\n", "0ab / 0cd / "},
             Row{"ab\rc", "0ab 1! 0c"},
             Row{"ab\r\r\n", "0ab 1!  / "},
             Row{"a\tb\t\tc", "0a 1! 8b 1!  1! 24c"},
             Row{"12345678\tx", "012345678 1! 16x"},
             Row{"abc\b\bx", "0abc 1!  1! 1x"},
             Row{"a\x7F"
                 "b",
                 "0a 1! 1b"},
             Row{"a\fb\r\nc", "0a # 0b / 0c"},
             Row{"a\r", "0a 1! "},
             Row{"\016ab\bc\nd", " 1! 0ab 1! 2c / 0d"},
             Row{"\033J\n\033C\012x", " 3!  3! 0x"},
             Row{"\033Ea\033Gb\033F\033Hc", " 2! 0*a 2! 1*+b 2!  2! 2c"},
             Row{"\033-1a\033!\110b\033@c", " 3! 0_a 3! 1*~b 2! 2c"},
             Row{std::string("\033C\0\fx", 5), " 4! 0x"},
             Row{"\033", " 1! "},
             Row{std::string("\033$\036\000x", 5), " 4! 5x"},
             Row{std::string("\033K\002\000\f\nx", 7), " 6! 0x"},
             Row{"x\033*\041\002", "0x 4! "},
             Row{std::string("\033(U\001\000\nx", 7), " 6! 0x"},
             Row{"\033D\010\020\001x", " 5! 0x"});
}

TEST(PrintedReader, BlocksMakeNoDifference) {
  const std::string text("a\r\n\rb\033*\001\002\000xy\r\f\033C\000\fz\t\r", 21);
  Told sink;
  PrintedReader reader(sink);
  for (const char byte : text) reader.block({&byte, 1});
  reader.end();
  EXPECT_EQ(sink.events, told(text));
}

}  // namespace
}  // namespace paperway
