#include "printed/paper_reader.h"

#include <cmath>

#include "support/expect_each.h"

namespace paperway {
namespace {

using std::string_literals::operator""s;

/// What stands on the paper, each text as "left,top/cpi bytes", in 1/1000 inch.
class Told : public PaperSink {
 public:
  std::string paper;

  void text(const PaperText& text) override {
    add(place(text.left, text.top) + "/" + std::to_string(std::lround(text.cpi * 10)));
    if (text.height != 1) paper += "h" + std::to_string(std::lround(text.height * 10));
    if (text.color != 0) paper += "c" + std::to_string(text.color);
    if (text.codeTable != 437) paper += "t" + std::to_string(text.codeTable);
    paper += " " + std::string(text.bytes);
  }
  void image(const PaperImage& image) override {
    add(place(image.left, image.top) + "#" + std::to_string(image.image.count()) + "x" +
        std::to_string(image.image.rows()) + ":" +
        place(image.image.width(), image.image.height()));
  }
  void feed(const PaperFeed& feed) override { stop = feed.inches(); }
  void unknown(const std::string& code, double top) override {
    add(code + "?" + std::to_string(std::lround(top * 1000)));
  }

  double stop = 0;

 private:
  static std::string place(double left, double top) {
    return std::to_string(std::lround(left * 1000)) + "," + std::to_string(std::lround(top * 1000));
  }
  void add(const std::string& what) { paper += (paper.empty() ? "" : " ") + what; }
};

std::string paperOf(const std::string& stream, const PaperPrinter& printer = {}) {
  Told told;
  PaperReader reader(told, printer);
  reader.block(stream);
  reader.end();
  return told.paper;
}

TEST(PaperReader, TellsWhereThingsStand) {
  const auto paper = [](const std::string& stream) { return paperOf(stream); };
  expectEach(
      paper,
      // Pitches and what makes characters wider.
      Row{"a\033Mb\033gc\033Pd"s, "0,0/100 a 100,0/120 b 183,0/150 c 250,0/100 d"},
      Row{"\017a\022b\033M\017c"s, "0,0/171 a 58,0/100 b 158,0/200 c"},
      Row{"\016ab\nc"s, "0,0/50 ab 0,167/100 c"},
      Row{"\033W1a\033W0b"s, "0,0/50 a 200,0/100 b"},
      Row{"\033 \014ab\033 \000c"s, "0,0/50 ab 400,0/100 c"},
      Row{"\033w1a\033w0b"s, "0,-167/100h20 a 100,0/100 b"},
      Row{"\033S1a\033S0b\033Tc"s, "0,83/100h5 a 100,0/100h5 b 200,0/100 c"},
      // Along the line.
      Row{"ab\bc"s, "0,0/100 ab 100,0/100 c"},
      Row{"\033D\005\014\000a\tb\tc\td"s, "0,0/100 a 500,0/100 b 1200,0/100 c 1300,0/100 d"},
      Row{"\033D\005\000\033M\ta"s, "500,0/120 a"},
      Row{"\033l\012a\rb\tc\nd"s, "1000,0/100 a 1000,0/100 b 1800,0/100 c 1000,167/100 d"},
      Row{"\033$\170\000a\033\\\074\000b\033\\\xF0\xFF"
          "c"s,
          "2000,0/100 a 2600,0/100 b 2567,0/100 c"},
      Row{"\033l\012\033@a"s, "1000,0/100 a"},
      // Along the paper.
      Row{"\0330\na\n\0331\nb\n\0332\nc"s, "0,125/100 a 0,347/100 b 0,611/100 c"},
      Row{"\0333\110\na\033A\006\nb"s, "0,333/100 a 0,417/100 b"},
      Row{"a\033J\154b\033j\154c"s, "0,0/100 a 100,500/100 b 200,0/100 c"},
      Row{"\fa\f\nb"s, "0,11000/100 a 0,22167/100 b"},
      Row{"\033C\006\n\fa"s, "0,1000/100 a"},
      Row{"\n\033C\000\003\fa\n\fb"s, "0,3167/100 a 0,6167/100 b"},
      Row{"\033C\000\001\033N\003\n\na\nb"s, "0,333/100 a 0,1000/100 b"},
      Row{"\033C\000\001\033N\003\033O\n\n\na"s, "0,500/100 a"},
      Row{"\033B\003\011\000a\vb\vc\vd"s, "0,0/100 a 0,500/100 b 0,1500/100 c 0,11000/100 d"},
      Row{"a\vb"s, "0,0/100 a 0,167/100 b"},
      Row{"\033C\000\004\033j\110\033j\110\033C\000\004a\fb"s, "0,-667/100 a 0,3333/100 b"},
      Row{"\n\033@a\fb"s, "0,167/100 a 0,11167/100 b"},
      // Dots.
      Row{"a\033K\002\000\377\001b"s, "0,0/100 a 100,0#2x8:33,111 133,0/100 b"},
      Row{"\033*\047\001\000abc"s, "0,0#1x24:6,133"},
      Row{"\033^\001\001\000\377\001"s, "0,0#1x9:8,125"},
      // Letters and ink.
      Row{"\033t0a\033t1b\033r2c"s, "0,0/100t0 a 100,0/100 b 200,0/100c2 c"},
      Row{"\033(t\003\000\001\003\000a\033@b"s, "0,0/100t850 a 100,0/100 b"},
      // What leaves no trace, and what nobody knows.
      Row{"\033x1\033U1\033\031C\033p0\007\000a"s, "0,0/100 a"},
      Row{"\n\033(V\002\000ab\033p1\033R\002\030\177\033h"s,
          "ESC ( V?167 ESC p?167 ESC R?167 CAN?167 DEL?167 ESC h?167"},
      Row{"\033(t\003\000\001\002\000\033r\011"s, "ESC ( t?0 ESC r?0"},
      Row{"\033*\001"s, "ESC *?0"});
}

TEST(PaperReader, PrintersOf24PinsFeedInOtherSteps) {
  const PaperPrinter printer{.pins = PaperFeed::Pins::twentyFour, .codeTable = 858};
  const auto paper = [&](const std::string& stream) { return paperOf(stream, printer); };
  expectEach(paper,
             Row{"\0333\074\na"s, "0,333/100t858 a"},
             Row{"\033J\132a"s, "0,500/100t858 a"},
             Row{"\033A\006\na"s, "0,100/100t858 a"},
             Row{"\033+\044\na"s, "0,100/100t858 a"},
             Row{"\033*\000\001\000\377"s, "0,0#1x8:17,133"});
}

}  // namespace
}  // namespace paperway
