// What the renderer does for any form: focus, keys, panels, menus, errors, other windows.

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "backends/desktop/qt/message_box.h"
#include "paperway/automation_error.h"
#include "qt_desk.h"
#include "support/sample_form.h"

namespace paperway {
namespace {

class FormWindowTest : public testing::Test {
 protected:
  ~FormWindowTest() override {
    desk.expectAgreement(*form);
    desk.windows.window(*form)->act([this] { form->unload(); });
  }

  SampleForm& show(const std::shared_ptr<SampleForm>& shown) {
    shown->load();
    desk.windows.show(shown);
    return *shown;
  }
  QWidget* focused() { return desk.windows.window(*form)->focusWidget(); }

  QtDesk desk;
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
  QtUser user = desk.user(show(form));
};

TEST_F(FormWindowTest, FiltersOfKeysHoldForPastedTextToo) {
  EXPECT_EQ(focused(), &user.widget("Rt1")) << "the text has the focus first";
  user.focus("Text1");
  QApplication::clipboard()->setText(QStringLiteral("x3y4"));
  QTest::keyClick(focused(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form->Text1.Text, "34");
}

TEST_F(FormWindowTest, KeysAHandlerTakesAndTabsThatValidationRefusesDoNothing) {
  form->Rt1.onKeyDown = [](int& key, int) { key = key == 'X' ? 0 : key; };
  user.type("Rt1", "xyz");
  EXPECT_EQ(form->Rt1.Text, "yz");
  user.type("Text1", "0");
  QTest::keyClick(focused(), Qt::Key_Tab);
  EXPECT_EQ(form->activeControl(), &form->Text1);
  EXPECT_EQ(focused(), &user.widget("Text1"));
}

TEST_F(FormWindowTest, ALetterOfNoCaptionTypesNothingWithAlt) {
  user.type("Combo1", "a");
  for (const Qt::Key key : {Qt::Key_K, Qt::Key_4}) {
    QTest::keyClick(focused(), key, Qt::AltModifier);
  }
  EXPECT_EQ(form->Combo1.Text, "a");
}

TEST_F(FormWindowTest, WhatIsSelectedInAListBoxIsTypedOver) {
  user.type("Combo1", "12");
  QTest::keyClick(focused(), Qt::Key_A, Qt::ControlModifier);
  desk.windows.window(*form)->sync();  // as a timer does
  QTest::keyClick(focused(), Qt::Key_9);
  EXPECT_EQ(form->Combo1.Text, "9");
}

TEST_F(FormWindowTest, AClickThatIsRefusedLeavesTheFocusAndPressesNothing) {
  int refused = 0;
  form->Text1.onValidate = [&](bool& cancel) {
    cancel = ++refused > 0;
    answer<QMessageBox>([](QMessageBox& box) { box.accept(); });
    qt::MessageBoxes().show("no", "", MessageBoxes::Buttons::ok, MessageBoxes::Icon::none);
  };
  user.focus("Text1");
  user.click("CmdOk");
  EXPECT_EQ(focused(), &user.widget("Text1"));
  EXPECT_FALSE(dynamic_cast<QAbstractButton&>(user.widget("CmdOk")).isDown());
  EXPECT_EQ(refused, 1);
  form->Text1.onValidate = nullptr;
}

TEST_F(FormWindowTest, EveryCommandIsReachedByKeyboard) {
  form->Op[1].Value.setQuietly(true);
  std::string visited;
  for (int i = 0; i < 12; ++i) {
    QTest::keyClick(focused(), Qt::Key_Tab);
    visited += form->activeControl()->name + " ";
  }
  EXPECT_EQ(visited,
            "CmdOk CmdMenu CmdOpen Link Sign Text1 Combo1 VScroll1 OptElse Ch10 Ch12 Op(1) ")
      << "one stop for a group of options";
  form->takeLog();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Left}) {
    QTest::keyClick(focused(), key);
  }
  user.press("CmdOk", keyReturn);
  user.press("CmdOk", keySpace);
  user.press("Link", keyReturn);
  user.press("Sign", keyReturn);
  EXPECT_EQ(form->takeLog(), "Op(2) Op(0) Op(2) CmdOk CmdOk Link Sign ");
}

TEST_F(FormWindowTest, APanelTakesTheFocusAndGivesItBack) {
  user.click("CmdOpen");
  EXPECT_EQ(form->activeControl(), &form->InPanel);
  for (const Control* next :
       {static_cast<Control*>(&form->CmdShut), static_cast<Control*>(&form->InPanel)}) {
    QTest::keyClick(focused(), Qt::Key_Tab);
    EXPECT_EQ(form->activeControl(), next) << "not what lies behind the panel";
  }
  user.press("InPanel", keyReturn);
  EXPECT_FALSE(form->Panel.Visible) << "Enter is a press of the panel's default button";
  user.click("CmdOpen");
  user.click("CmdShut");
  EXPECT_EQ(form->activeControl(), &form->CmdOpen);
  form->CmdOpen.onClick = [this] { form->CmdOpen.Enabled = false; };
  user.click("CmdOpen");
  EXPECT_EQ(form->activeControl(), &form->Rt1) << "a disabled control lets the focus go";
}

TEST_F(FormWindowTest, AnErrorOfAHandlerIsTold) {
  form->CmdOk.onClick = [] { throw AutomationError(53, "test", "The file \"x\" is missing."); };
  QString told;
  answer<QMessageBox>([&told](QMessageBox& box) {
    told = box.text();
    box.accept();
  });
  user.click("CmdOk");
  EXPECT_EQ(told, QStringLiteral("The file \"x\" is missing."));
}

TEST_F(FormWindowTest, FormsAreToldOnlyWhenTheyComeToTheFrontOfOthers) {
  EXPECT_EQ(form->takeLog(), "load front ");
  const auto other = std::make_shared<SampleForm>();
  desk.user(show(other));
  form->takeLog();
  other->takeLog();
  desk.windows.show(form);
  desk.user(*form);
  EXPECT_EQ(form->takeLog(), "front ");
  answer<QMessageBox>([](QMessageBox& box) { box.close(); });
  qt::MessageBoxes().show("text", "", MessageBoxes::Buttons::ok, MessageBoxes::Icon::none);
  QApplication::processEvents();
  EXPECT_EQ(form->takeLog(), "") << "coming back from a message is not coming to the front";
  desk.windows.window(*other)->close();
  EXPECT_EQ(other->log, "closed ");
  EXPECT_EQ(desk.windows.window(*other), nullptr);
}

TEST_F(FormWindowTest, WaitingEventsRunWithinAHandler) {
  bool stopped = false;
  form->Text1.onKeyDown = [&](int& key, int) { stopped = key == keyEscape; };
  form->CmdOk.onClick = [&] {
    QApplication::postEvent(&user.widget("Text1"),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, {}));
    for (int i = 0; i < 1'000'000 && !stopped; ++i) desk.windows.doEvents();
  };
  user.click("CmdOk");
  EXPECT_TRUE(stopped);
}

TEST_F(FormWindowTest, ALongHandlerCanShowWhatItChanged) {
  const QWidget& panel = user.widget("Panel");
  bool seen = false;
  form->CmdOk.onClick = [&] {
    form->Panel.Visible = true;
    desk.windows.repaint();
    seen = panel.isVisible();
  };
  user.click("CmdOk");
  EXPECT_TRUE(seen);
}

TEST(WindowsOnTheDesktop, RunEndsWithTheLastOne) {
  QtDesk desk;
  const auto only = std::make_shared<SampleForm>();
  only->load();
  desk.windows.show(only);
  QTimer::singleShot(0, [&] { desk.windows.window(*only)->close(); });
  desk.windows.run();
  EXPECT_EQ(only->log, "load front closed ");
}

TEST(MessageBoxOnTheDesktop, ShowsTextsAsTheyStand) {
  using Buttons = MessageBoxes::Buttons;
  using Icon = MessageBoxes::Icon;
  using Answer = MessageBoxes::Answer;
  constexpr auto kEsc = QMessageBox::NoButton;
  const std::tuple<Buttons, Icon, QMessageBox::Icon, QMessageBox::StandardButton, Answer> cases[] =
      {{Buttons::yesNo, Icon::none, QMessageBox::NoIcon, QMessageBox::Yes, Answer::yes},
       {Buttons::yesNo, Icon::information, QMessageBox::Information, QMessageBox::No, Answer::no},
       {Buttons::yesNo, Icon::none, QMessageBox::NoIcon, kEsc, Answer::no},
       {Buttons::ok, Icon::critical, QMessageBox::Critical, kEsc, Answer::ok}};
  for (const auto& [buttons, icon, drawn, press, given] : cases) {
    answer<QMessageBox>([expected = drawn, pressed = press](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle() + "|" + box.text(), "Title | Select <b>Page</b>...!");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.icon(), expected);
      if (pressed == kEsc) return box.reject();
      QTest::mouseClick(static_cast<QWidget*>(box.button(pressed)), Qt::LeftButton);
    });
    EXPECT_EQ(qt::MessageBoxes().show(" Select <b>Page</b>...!", "Title ", buttons, icon), given);
  }
}

}  // namespace
}  // namespace paperway
