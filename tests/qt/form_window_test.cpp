// What the renderer does for any form: focus, keys, panels, menus, errors, other windows.

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "backends/desktop/qt/control_view.h"
#include "backends/desktop/qt/message_box.h"
#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/containers.h"
#include "controls/rich_text.h"
#include "controls/sp_lebal.h"
#include "qt_desk.h"
#include "util/automation_error.h"

namespace paperway {
namespace {

void place(Geometry& geometry, int left, int top, int width, int height) {
  geometry.Left = left;
  geometry.Top = top;
  geometry.Width = width;
  geometry.Height = height;
}

struct SmallForm : Form {
  SmallForm() : Form("SmallForm") {
    place(*this, 0, 0, 9000, 6000);
    int top = 100;
    for (Control* control : std::initializer_list<Control*>{&digits, &list, &ok, &open, &link,
                                                            &sign, &one, &two, &three, &bar}) {
      place(*control, 200, top, 2400, 375);
      top += 450;
    }
    place(text, 3000, 100, 5000, 3000);
    place(panel, 3000, 3300, 5000, 2000);
    place(inPanel, 100, 500, 1500, 375);
    place(shut, 100, 1000, 1500, 375);
    panel.Panel = true;
    panel.Visible = false;
    digits.onKeyPress = [](int& key) {
      if (key >= ' ' && (key < '0' || key > '9')) key = 1;
    };
    ok.onClick = [this] { log += "ok "; };
    open.onClick = [this] { panel.Visible = true; };
    shut.onClick = [this] { panel.Visible = false; };
    link.onClick = [this] { log += "link "; };
    sign.onClick = [this] { log += "sign "; };
    for (OptionButton* option : {&one, &two, &three}) {
      option->onClick = [this, option] { log += option->Caption + " "; };
    }
  }
  void Form_Activate() override { log += "front "; }
  void Form_Unload() override { log += "closed "; }

  std::string log;
  TextBox digits{*this, "digits"};
  ComboBox list{*this, "list", {"first", "second"}};
  JeweledButton ok{*this, "ok", "&OK"};
  JeweledButton open{*this, "open", "O&pen"};
  Label link{*this, "link", "Link"};
  SpLebal sign{*this, "sign"};
  OptionButton one{*this, "one", "1"};
  OptionButton two{*this, "two", "2"};
  OptionButton three{*this, "three", "3"};
  ScrollBar bar{*this, "bar"};
  RichTextBox text{*this, "text"};
  Frame panel{*this, "panel", "Panel"};
  TextBox inPanel{*this, "inPanel", "", &panel};
  JeweledButton shut{*this, "shut", "Shut", &panel};
};

class FormWindowTest : public testing::Test {
 protected:
  ~FormWindowTest() override {
    desk.expectAgreement(*form);
    desk.windows.window(*form)->act([this] { form->unload(); });
  }

  SmallForm& show(const std::shared_ptr<SmallForm>& shown) {
    shown->load();
    desk.windows.show(shown);
    return *shown;
  }
  std::string takeLog() { return std::exchange(form->log, ""); }
  QWidget* focused() { return desk.windows.window(*form)->focusWidget(); }

  QtDesk desk;
  std::shared_ptr<SmallForm> form = std::make_shared<SmallForm>();
  QtUser user = desk.user(show(form));
};

TEST_F(FormWindowTest, TheTextHasTheFocusFirst) {
  EXPECT_EQ(form->activeControl(), &form->text);
  EXPECT_EQ(focused(), &user.widget("text"));
}

TEST_F(FormWindowTest, FiltersOfKeysHoldForPastedTextToo) {
  user.type("digits", "a1b2");
  EXPECT_EQ(form->digits.Text, "12");
  QApplication::clipboard()->setText(QStringLiteral("x3y4"));
  QTest::keyClick(focused(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form->digits.Text, "1234");
}

TEST_F(FormWindowTest, ValidationKeepsTheFocusAndStopsTheClick) {
  form->digits.onValidate = [](bool& cancel) { cancel = true; };
  user.type("digits", "7");
  takeLog();
  user.click("ok");
  EXPECT_EQ(takeLog(), "");
  EXPECT_EQ(form->activeControl(), &form->digits);
  EXPECT_EQ(focused(), &user.widget("digits"));
  QTest::keyClick(focused(), Qt::Key_Tab);
  EXPECT_EQ(form->activeControl(), &form->digits);
  form->digits.onValidate = nullptr;
  user.click("ok");
  EXPECT_EQ(takeLog(), "ok ");
}

TEST_F(FormWindowTest, EveryCommandIsReachedByKeyboard) {
  form->two.Value.setQuietly(true);
  user.focus("digits");
  takeLog();
  std::string visited;
  for (int i = 0; i < 9; ++i) {
    visited += form->activeControl()->name + " ";
    QTest::keyClick(focused(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited, "digits list ok open link sign two bar text ")
      << "one stop for a group of options";
  EXPECT_EQ(form->activeControl(), &form->digits);

  user.press("ok", keyReturn);
  user.press("ok", keySpace);
  user.press("link", keyReturn);
  user.press("sign", keyReturn);
  user.alt('o');
  EXPECT_EQ(takeLog(), "ok ok link sign ok ");
  user.focus("two");
  QTest::keyClick(focused(), Qt::Key_Down);
  QTest::keyClick(focused(), Qt::Key_Down);
  QTest::keyClick(focused(), Qt::Key_Left);
  EXPECT_EQ(takeLog(), "3 1 3 ");
}

TEST_F(FormWindowTest, APanelTakesTheFocusAndGivesItBack) {
  user.click("open");
  EXPECT_EQ(form->activeControl(), &form->inPanel);
  user.click("shut");
  EXPECT_EQ(form->activeControl(), &form->open);
  form->open.onClick = [this] { form->open.Enabled = false; };
  user.click("open");
  EXPECT_EQ(form->activeControl(), &form->text) << "a disabled control lets the focus go";
}

TEST_F(FormWindowTest, ListsAreChosenFromAndTypedInto) {
  std::string chosen;
  form->list.onClick = [&] { chosen = form->list.Text; };
  user.choose("list", "second");
  EXPECT_EQ(chosen, "second");
  user.type("list", "\b\b\b\b\b\bother");
  EXPECT_EQ(form->list.Text, "other");
  EXPECT_EQ(form->list.ListIndex, -1);
}

TEST_F(FormWindowTest, KeysThatAHandlerTakesDoNothing) {
  form->text.onKeyDown = [](int& key, int) {
    if (key == 'X') key = 0;
  };
  user.type("text", "xyz");
  EXPECT_EQ(form->text.Text, "yz");
}

TEST_F(FormWindowTest, AnErrorOfAHandlerIsTold) {
  form->ok.onClick = [] { throw AutomationError(53, "test", "The file \"x\" is missing."); };
  QString told;
  QTimer::singleShot(0, [&told] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    told = box->text();
    box->accept();
  });
  user.click("ok");
  EXPECT_EQ(told, QStringLiteral("The file \"x\" is missing."));
}

TEST_F(FormWindowTest, FormsAreToldOnlyWhenTheyComeToTheFrontOfOthers) {
  EXPECT_EQ(takeLog(), "front ");
  const auto other = std::make_shared<SmallForm>();
  desk.user(show(other));
  takeLog();
  other->log.clear();
  desk.windows.show(form);
  desk.user(*form);
  EXPECT_EQ(takeLog(), "front ");
  QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
  qt::MessageBox().show("text", "", MessageBox::Buttons::ok, MessageBox::Icon::none);
  QApplication::processEvents();
  EXPECT_EQ(takeLog(), "") << "coming back from a message is not coming to the front";
  desk.windows.window(*other)->close();
  EXPECT_EQ(other->log, "closed ");
  EXPECT_EQ(desk.windows.window(*other), nullptr);
}

TEST_F(FormWindowTest, WaitingEventsRunWithinAHandler) {
  bool stopped = false;
  form->digits.onKeyDown = [&](int& key, int) { stopped = key == keyEscape; };
  form->ok.onClick = [&] {
    QApplication::postEvent(&user.widget("digits"),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, {}));
    for (int i = 0; i < 1'000'000 && !stopped; ++i) desk.windows.doEvents();
  };
  user.click("ok");
  EXPECT_TRUE(stopped);
}

TEST_F(FormWindowTest, RunEndsWithTheLastWindow) {
  const auto only = std::make_shared<SmallForm>();
  qt::Windows windows;
  only->load();
  windows.show(only);
  QTimer::singleShot(0, [&] { windows.window(*only)->close(); });
  windows.run();
  EXPECT_EQ(only->log, "front closed ");
  EXPECT_FALSE(only->loaded());
}

TEST(MessageBoxOnTheDesktop, ShowsTextsAsTheyStand) {
  struct Case {
    MessageBox::Buttons buttons;
    MessageBox::Icon icon;
    QMessageBox::StandardButton press;
    MessageBox::Answer answer;
  };
  const Case cases[] = {
      {MessageBox::Buttons::yesNo, MessageBox::Icon::none, QMessageBox::Yes,
       MessageBox::Answer::yes},
      {MessageBox::Buttons::yesNo, MessageBox::Icon::information, QMessageBox::No,
       MessageBox::Answer::no},
      {MessageBox::Buttons::yesNo, MessageBox::Icon::none, QMessageBox::NoButton,
       MessageBox::Answer::no},
      {MessageBox::Buttons::ok, MessageBox::Icon::critical, QMessageBox::NoButton,
       MessageBox::Answer::ok},
  };
  for (const Case& c : cases) {
    QString text;
    QMessageBox::Icon icon{};
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      text = box->windowTitle() + "|" + box->text();
      icon = box->icon();
      if (c.press == QMessageBox::NoButton) return box->reject();  // Esc
      QTest::mouseClick(box->button(c.press), Qt::LeftButton);
    });
    EXPECT_EQ(qt::MessageBox().show(" Select <b>Page</b>...!", "Title ", c.buttons, c.icon),
              c.answer);
    EXPECT_EQ(text, QStringLiteral("Title | Select <b>Page</b>...!"));
    EXPECT_EQ(static_cast<int>(icon), c.icon == MessageBox::Icon::critical ? QMessageBox::Critical
                                      : c.icon == MessageBox::Icon::information
                                          ? QMessageBox::Information
                                          : QMessageBox::NoIcon);
  }
}

}  // namespace
}  // namespace paperway
