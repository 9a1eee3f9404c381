#include "controls/sp_lebal.h"

#include <sstream>

#include "controls/form.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

struct FixedMeasure : TextMeasure {
  int wrappedHeight(std::string_view, const FontSpec&, int) const override { return 26; }
};

class SpLebalTest : public testing::Test {
 protected:
  auto paint(int height = 600) { return label.paint(1500, height, FixedMeasure()); }

  Form form{"LabelForm"};
  SpLebal label{form, "SpLebal3"};
};

TEST_F(SpLebalTest, PaintsCaptionAndHotKeyByItsStyle) {
  // left,top,right,bottom horizontal vertical wrapped, of each text
  const auto texts = [&](int style) {
    label.HotKeyCaption = "F3";
    label.CaptionStyle = style;
    std::ostringstream plan;
    for (const auto& t : paint().texts) {
      plan << t.left << "," << t.top << "," << t.right << "," << t.bottom << " "
           << static_cast<int>(t.horizontal) << " " << static_cast<int>(t.vertical) << " "
           << t.wrapped << "|";
    }
    return plan.str();
  };
  expectEach(texts,
             Row{0, "8,8,92,32 0 1 0|8,8,92,32 2 1 0|"},
             Row{1, "8,8,92,32 1 1 0|8,8,92,32 2 1 0|"},
             Row{2, "8,7,92,33 1 0 1|8,7,92,33 2 2 0|"},
             Row{3, ""});
  label.CaptionStyle = 2;
  EXPECT_EQ(paint(300).texts[0].top, -3) << "a caption taller than the surface";
}

TEST_F(SpLebalTest, StandsInAFrameOfFourLines) {
  const auto frame = [&](int view) {
    label.View3D = view;
    std::ostringstream lines;
    for (const auto& line : paint().lines) {
      const char* color = line.color == kButtonShadow ? "dark" : "light";
      lines << line.x1 << "," << line.y1 << " " << line.x2 << "," << line.y2 << " "
            << (line.color == kButtonFace ? "face" : color) << "|";
    }
    return lines.str();
  };
  const std::string sunken =
      "1499,0 1499,600 light|0,0 0,599 dark|30,599 1500,599 light|0,0 1499,0 dark|";
  expectEach(frame,
             Row{1, "1499,0 1499,600 dark|0,0 0,599 light|30,599 1500,599 dark|0,0 1499,0 light|"},
             Row{0, sunken},
             Row{7, sunken},
             Row{2, "1499,0 1499,600 face|0,0 0,599 face|30,599 1500,599 face|0,0 1499,0 face|"});
}

TEST_F(SpLebalTest, KeepsItselfInARecord) {
  label.Caption = "GOTO";
  label.Down3D = false;
  label.Font = {"Liberation Sans", 9.5, true};
  label.ForeColor = 255;
  label.View3D = 2;
  const SpLebal::Record record = label.write();
  label.read({});
  EXPECT_EQ(label.Caption, "SpLebal3");
  EXPECT_EQ(label.CaptionStyle, 2) << "of a record without the key";
  label.read(record);
  EXPECT_EQ(label.write(), record);
  EXPECT_EQ(label.Font, (FontSpec{"Liberation Sans", 9.5, true}));
}

}  // namespace
}  // namespace paperway
