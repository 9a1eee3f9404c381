// What is painted: lines of a report against the same text drawn by plain means, and controls whose
// picture follows what the form says of them.

#include <QApplication>
#include <QPainter>
#include <QRawFont>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

#include "backends/desktop/qt/application.h"
#include "backends/desktop/qt/report_view.h"
#include "controls/form.h"
#include "qt_desk.h"
#include "support/report_window.h"
#include "support/sample_form.h"

namespace paperway {
namespace {

QImage pictureOf(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The smallest rectangle outside of which both pictures are the same.
QRect difference(const QImage& one, const QImage& other) {
  QRect changed;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      if (one.pixel(x, y) != other.pixel(x, y)) changed |= QRect(x, y, 1, 1);
    }
  }
  return changed;
}

/// How much of what `expected` shows on its paper is painted otherwise; 0 for equal pictures.
double wrongInk(const QImage& painted, const QImage& expected) {
  const QRgb paper = expected.pixel(expected.width() - 1, expected.height() - 1);
  const auto distance = [](QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
           std::abs(qBlue(a) - qBlue(b));
  };
  double wrong = 0;
  double ink = 1;
  for (int y = 0; y < expected.height(); ++y) {
    for (int x = 0; x < expected.width(); ++x) {
      wrong += distance(painted.pixel(x, y), expected.pixel(x, y));
      ink += distance(expected.pixel(x, y), paper);
    }
  }
  return wrong / ink;
}

constexpr double kTolerance = 0.1;

class PaintedReport : public testing::Test {
 protected:
  PaintedReport() {
    box.ForeColor = 0;
    view.resize(400, 120);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.clearFocus();
  }

  static QFont face(double points, bool bold, bool underline) {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setPointSizeF(points);
    font.setBold(bold);
    font.setUnderline(underline);
    return font;
  }

  QImage painted() {
    view.sync();
    return pictureOf(*view.viewport());
  }
  QImage paper(const QColor& color = Qt::white) const {
    QImage image(view.viewport()->size(), QImage::Format_RGB32);
    image.fill(color);
    return image;
  }
  /// A line from the offset `begin` on, drawn into the picture as any program would.
  void draw(QImage& image, const QFont& font, const QColor& ink, const QString& text,
            int begin = 0) {
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(ink);
    const QRawFont raw = QRawFont::fromFont(font);
    const double cell = raw.advancesForGlyphIndexes(raw.glyphIndexesForString("0"))[0].x();
    for (int i = 0; i < text.size(); ++i) {
      painter.drawText(QPointF(qt::ReportView::kMarginLeft - view.horizontalScrollBar()->value() +
                                   (begin + i) * cell,
                               qt::ReportView::kMarginTop + std::ceil(raw.ascent())),
                       text.mid(i, 1));
    }
  }

  Form form{"Form"};
  RichTextBox box{form, "box"};
  qt::ReportView view{box, [](const std::function<void()>& handler) { handler(); }, nullptr};
};

TEST_F(PaintedReport, LooksOfText) {
  const QString line = QStringLiteral("Wide 42 café");
  const std::tuple<const char*, FormatChange, QFont, QColor> looks[] = {
      {"plain", {}, face(11.25, false, false), Qt::black},
      {"bold", {.color = 128, .bold = true}, face(11.25, true, false), QColor(128, 0, 0)},
      {"condensed", {.size = 7, .color = 8388736}, face(7, false, false), QColor(128, 0, 128)},
      {"double", {.size = 20, .bold = true}, face(20, true, false), Qt::black},
      {"underlined", {.underline = true}, face(11.25, false, true), Qt::black},
      {"highlighted", {.color = 255}, face(11.25, false, false), Qt::red}};
  for (const auto& [name, change, font, ink] : looks) {
    box.Text = "Wide 42 caf\xE9";
    box.format(0, box.buffer().size(), change);
    QImage expected = paper();
    draw(expected, font, ink, line);
    EXPECT_LT(wrongInk(painted(), expected), kTolerance) << name;
  }
  box.format(0, box.buffer().size(), {.size = 1, .color = kWhite});
  EXPECT_EQ(painted(), paper()) << "hidden";
}

TEST_F(PaintedReport, WhatIsInSightOfALongLine) {
  QString line;
  for (int i = 0; i < 300; ++i) line += QChar('0' + i % 74);
  box.Text = line.toStdString();
  box.BackColor = 0xC0FFFF;
  view.sync();
  view.horizontalScrollBar()->setValue(205);
  QImage expected = paper(QColor(255, 255, 192));
  draw(expected, face(11.25, false, false), Qt::black, line);
  EXPECT_LT(wrongInk(painted(), expected), kTolerance);
}

TEST_F(PaintedReport, SelectionAndCaretWhileTheViewHasTheFocus) {
  box.Text = "selected\r\nrest";
  const QImage plain = painted();
  view.setFocus();
  const QRect caret = difference(painted(), plain);
  EXPECT_EQ(caret, QRect(view.pointOf(0), QSize(2, view.pointOf(10).y() - view.pointOf(0).y())));

  box.moveCaret(2);
  box.moveCaret(5, true);
  const QPalette palette = view.palette();
  QImage expected = paper();
  const QRect chosen(view.pointOf(2), QPoint(view.pointOf(5).x(), view.pointOf(10).y()));
  QPainter(&expected).fillRect(chosen, palette.color(QPalette::Highlight));
  draw(expected, face(11.25, false, false), palette.color(QPalette::HighlightedText), "lec", 2);
  const QRect inside = chosen.adjusted(1, 1, -2, -2);
  EXPECT_LT(wrongInk(painted().copy(inside), expected.copy(inside)), kTolerance);
  view.clearFocus();
  EXPECT_EQ(painted(), plain) << "kept but not shown";
}

TEST_F(PaintedReport, ControlCharactersAndTheEndsOfPages) {
  box.Text = "\033";
  const QImage symbol = painted();
  const QRect ink = difference(symbol, paper());
  EXPECT_TRUE(ink.width() > 4 && ink.height() > 8) << "a box with the character's letter";
  box.Text = " \f ";
  const QRect rule = difference(painted(), paper());
  EXPECT_GT(rule.width(), view.viewport()->width() * 9 / 10);
  EXPECT_EQ(rule.height(), 1);
}

class PaintedForm : public testing::Test {
 protected:
  PaintedForm() {
    form->load();
    form->Panel.Visible = true;
    form->Text1.Text = form->Combo1.Text = "text";
    desk.windows.show(form);
    desk.user(*form);
    form->moveFocus(nullptr);
  }
  ~PaintedForm() override { form->unload(); }

  QImage picture(const Control& control) {
    qt::FormWindow& window = *desk.windows.window(*form);
    window.sync();
    return pictureOf(window.view(control)->widget);
  }

  QtDesk desk;
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
};

TEST_F(PaintedForm, ControlsShowWhatTheFormSaysOfThem) {
  using Change = std::function<void(Control&)>;
  const std::tuple<const char*, Change, std::vector<const char*>> changes[] = {
      {"caption",
       [](Control& c) { c.Caption = "Other"; },
       {"CmdOk", "Link", "Sign", "Label1", "OptElse", "Frame1", "Ch10", "Op(1)", "Panel"}},
      {"disabled",
       [](Control& c) { c.Enabled = false; },
       {"CmdOk", "Link", "Sign", "Label1", "Text1", "Combo1", "OptElse", "Ch10", "Op(1)"}},
      {"disabled form",
       [](Control& c) { c.form.Enabled = false; },
       {"CmdOk", "Sign", "Label1", "Text1", "Ch10"}},
      {"italic",
       [](Control& c) { c.Font.Italic = true; },
       {"CmdOk", "Link", "Sign", "Label1", "Text1", "OptElse", "Ch10"}},
      {"bold",
       [](Control& c) { c.Font.Bold = true; },
       {"CmdOk", "Link", "Sign", "Label1", "Text1", "Combo1", "OptElse", "Ch10"}},
      {"underlined", [](Control& c) { c.Font.Underline = true; }, {"Label1", "Sign", "Ch10"}},
      {"size", [](Control& c) { c.Font.Size = 6; }, {"CmdOk", "Label1", "Sign", "Ch10"}},
      {"color", [](Control& c) { c.ForeColor = 255; }, {"Label1", "Sign", "Ch10", "Op(1)"}},
      {"background", [](Control& c) { c.BackColor = 0xFFFF; }, {"Label1", "Sign", "Ch10"}},
      {"value",
       [](Control& c) {
         if (auto* box = dynamic_cast<CheckBox*>(&c)) box->Value = 1;
         if (auto* option = dynamic_cast<OptionButton*>(&c)) option->Value = true;
         if (auto* line = dynamic_cast<TextBox*>(&c)) line->Text = "other";
         if (auto* list = dynamic_cast<ComboBox*>(&c)) list->Text = "other";
       },
       {"Ch10", "Op(1)", "Text1", "Combo1"}}};
  for (const auto& [what, change, controls] : changes) {
    for (const char* name : controls) {
      Control& control = form->at(name);
      const std::tuple before(control.Caption, control.Font, control.ForeColor, control.BackColor);
      const QImage plain = picture(control);
      change(control);
      EXPECT_FALSE(difference(picture(control), plain).isEmpty()) << what << " of " << name;
      std::tie(control.Caption, control.Font, control.ForeColor, control.BackColor) = before;
      control.Enabled = form->Enabled = true;
    }
  }
}

TEST_F(PaintedForm, LabelsAgainstPlainText) {
  const std::tuple<FontSpec, Alignment, Qt::Alignment> looks[] = {
      {{}, Alignment::left, Qt::AlignLeft},
      {{.Name = "", .Size = 12, .Italic = true}, Alignment::right, Qt::AlignRight},
      {{.Name = "Courier New", .Size = 9, .Bold = true}, Alignment::center, Qt::AlignHCenter}};
  for (const auto& [font, side, flag] : looks) {
    form->Label1.Font = font;
    form->Label1.TextAlignment = side;
    form->Label1.ForeColor = 128;
    const QImage painted = picture(form->Label1);
    QImage expected(painted.size(), QImage::Format_RGB32);
    expected.fill(QApplication::palette().color(QPalette::Window));
    QPainter painter(&expected);
    QFont plain = QApplication::font();
    if (!font.Name.empty()) plain.setFamily(qt::text(font.Name));
    if (font.Size > 0) plain.setPointSizeF(font.Size);
    plain.setBold(font.Bold);
    plain.setItalic(font.Italic);
    painter.setFont(plain);
    painter.setPen(QColor(128, 0, 0));
    painter.drawText(expected.rect(), flag | Qt::AlignVCenter | Qt::TextShowMnemonic, "&Text :");
    painter.end();
    EXPECT_LT(wrongInk(painted, expected), kTolerance) << font.Size;
  }
}

TEST_F(PaintedForm, FramesOfSpLebal) {
  const QPalette palette = QApplication::palette();
  const QPalette::ColorRole roles[][2] = {{QPalette::Mid, QPalette::Light},
                                          {QPalette::Light, QPalette::Mid},
                                          {QPalette::Window, QPalette::Window}};
  for (int view = 0; view < 3; ++view) {
    form->Sign.View3D = view;
    const QImage painted = picture(form->Sign);
    const int right = painted.width() - 1;
    const int bottom = painted.height() - 1;
    for (const QPoint& place : {QPoint(5, 0), QPoint(0, 5), QPoint(right - 5, 0)}) {
      EXPECT_EQ(painted.pixel(place), palette.color(roles[view][0]).rgb()) << view;
    }
    for (const QPoint& place : {QPoint(5, bottom), QPoint(right, 5), QPoint(right - 5, bottom)}) {
      EXPECT_EQ(painted.pixel(place), palette.color(roles[view][1]).rgb()) << view;
    }
  }
  form->Sign.CaptionStyle = 0;
  form->Sign.Caption = "WW";
  form->Sign.HotKeyCaption = "";
  const auto inkOf = [&] {
    const QImage painted = picture(form->Sign);
    form->Sign.CaptionStyle = 3;
    return difference(painted, picture(form->Sign));
  };
  const QRect left = inkOf();
  EXPECT_TRUE(left.left() >= 8 && left.left() <= 11) << left.left();
  form->Sign.CaptionStyle = 1;
  const int width = picture(form->Sign).width();
  EXPECT_NEAR(inkOf().center().x(), width / 2, 2);
}

TEST(PaintedReportWindow, PanelHidesWhatLiesBehindAndTheCalculatorIsDrawn) {
  const QPalette before = QApplication::palette();
  for (const bool dark : {false, true}) {
    if (dark) qt::useDarkColors();
    QtDesk desk;
    startRun();
    const auto form = openReportWindow(desk.platform(), std::string(3000, 'W') + "\f");
    qt::FormWindow& window = *desk.windows.window(*form);
    const QColor surface = QApplication::palette().color(QPalette::Window);
    const QColor ink = QApplication::palette().color(QPalette::ButtonText);
    form->Frame1.Visible = true;
    window.sync();
    const QRect panel = window.view(form->Frame1)->widget.geometry();
    const QImage picture = pictureOf(*window.widget());
    for (const QPoint& corner : {QPoint(8, 8),
                                 QPoint(panel.width() - 9, 8),
                                 QPoint(8, panel.height() - 9),
                                 QPoint(288, 200)}) {
      EXPECT_EQ(picture.pixel(panel.topLeft() + corner), surface.rgb());
    }
    const QImage calculator = pictureOf(window.view(form->Image1)->widget);
    const auto inked = [&](QRect area) {
      int count = 0;
      for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
          const int off = calculator.pixelColor(x, y).lightness() - ink.lightness();
          count += std::abs(off) < 110 ? 1 : 0;
        }
      }
      return count;
    };
    EXPECT_GT(inked(calculator.rect()), 60) << "its outline and display";
    const QPoint middle = calculator.rect().center();
    EXPECT_GT(inked(QRect(middle + QPoint(-4, 1), middle + QPoint(4, 7))), 8) << "its keys";
    form->unload();
  }
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace paperway
