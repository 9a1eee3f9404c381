#include "controls/sp_lebal.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace paperway {
namespace {

struct FixedMeasure : TextMeasure {
  int wrappedHeight(std::string_view, const FontSpec&, int) const override { return 26; }
};

struct LabelForm : Form {
  LabelForm() : Form("LabelForm") {
    Width = Height = 3000;
    SpLebal3.HotKeyCaption = "F3";
  }
  SpLebal SpLebal3{*this, "SpLebal3"};
};

TEST(SpLebal, PaintsCaptionAndHotKeyByItsStyle) {
  struct Case {
    int style;
    const char* plan;  // left,top,right,bottom horizontal vertical wrapped, of each text
  };
  const Case cases[] = {
      {0, "8,8,92,32 0 1 0|8,8,92,32 2 1 0|"},
      {1, "8,8,92,32 1 1 0|8,8,92,32 2 1 0|"},
      {2, "8,7,92,33 1 0 1|8,7,92,33 2 2 0|"},
      {3, ""},
  };
  for (const Case& c : cases) {
    LabelForm form;
    form.SpLebal3.CaptionStyle = c.style;
    std::string plan;
    for (const auto& text : form.SpLebal3.paint(1500, 600, FixedMeasure()).texts) {
      for (const int edge : {text.left, text.top, text.right, text.bottom}) {
        plan += std::to_string(edge) + ",";
      }
      plan.back() = ' ';
      plan += std::to_string(static_cast<int>(text.horizontal)) + " " +
              std::to_string(static_cast<int>(text.vertical)) + (text.wrapped ? " 1|" : " 0|");
    }
    EXPECT_EQ(plan, c.plan) << c.style;
  }
}

TEST(SpLebal, CutsACaptionTallerThanTheSurface) {
  LabelForm form;
  form.SpLebal3.CaptionStyle = 2;
  EXPECT_EQ(form.SpLebal3.paint(1500, 300, FixedMeasure()).texts[0].top, -3);
}

TEST(SpLebal, DrawsItsLinesAsTheViewSays) {
  LabelForm form;
  const auto colors = [&](int view) {
    form.SpLebal3.View3D = view;
    const auto lines = form.SpLebal3.paint(1500, 600, FixedMeasure()).lines;
    return std::pair{lines[3].color, lines[0].color};  // top, right
  };
  EXPECT_EQ(colors(1), (std::pair{kButtonHighlight, kButtonShadow}));
  EXPECT_EQ(colors(7), (std::pair{kButtonHighlight, kButtonShadow})) << "stays as it was";
  EXPECT_EQ(colors(0), (std::pair{kButtonShadow, kButtonHighlight}));
  EXPECT_EQ(colors(2), (std::pair{kButtonFace, kButtonFace}));
  const auto bottom = form.SpLebal3.paint(1500, 600, FixedMeasure()).lines[2];
  EXPECT_EQ(bottom.x1, 30);
  EXPECT_EQ(bottom.y2, 599);
}

TEST(SpLebal, KeepsItselfInARecord) {
  LabelForm form;
  SpLebal& label = form.SpLebal3;
  EXPECT_EQ(label.CaptionStyle, 1);
  EXPECT_EQ(label.Caption, "SpLebal3");
  label.read({});
  EXPECT_EQ(label.CaptionStyle, 2) << "of a record without the key";
  EXPECT_TRUE(label.write().empty());

  label.Caption = "GOTO";
  label.Down3D = false;
  label.Font = {"Liberation Sans", 9.5, true};
  label.ForeColor = 255;
  label.View3D = 2;
  const SpLebal::Record record = label.write();
  label.read({});
  EXPECT_EQ(label.Caption, "SpLebal3");
  label.read(record);
  EXPECT_EQ(label.write(), record);
  EXPECT_EQ(label.Font, (FontSpec{"Liberation Sans", 9.5, true}));
  EXPECT_EQ(record.front().first, "Caption");
  EXPECT_EQ(record.back(), (std::pair<std::string, std::string>{"View3D", "2"}));
}

}  // namespace
}  // namespace paperway
