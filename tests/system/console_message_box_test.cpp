#include "backends/desktop/system/console_message_box.h"

#include <gtest/gtest.h>
#include <sstream>

namespace paperway::desktop {
namespace {

using Answer = MessageBox::Answer;
using Buttons = MessageBox::Buttons;

TEST(ConsoleMessageBox, WritesTheMessageAndTakesTheAnswer) {
  struct Case {
    const char* text;
    const char* title;
    Buttons buttons;
    const char* typed;  // null: nobody is there
    Answer fixed;
    const char* written;
    Answer answer;
  };
  const Case cases[] = {
      {"Done", "", Buttons::ok, nullptr, Answer::no, "Done\n", Answer::ok},
      {"One\r\nTwo\rx", "Report", Buttons::ok, "y\n", Answer::no, "Report: One\nTwo\rx\n",
       Answer::ok},
      {"Print?", "", Buttons::yesNo, nullptr, Answer::yes, "Print? [yes]\n", Answer::yes},
      {"Print?", "", Buttons::yesNo, nullptr, Answer::no, "Print? [no]\n", Answer::no},
      {"Print?", "", Buttons::yesNo, "y\n", Answer::no, "Print? [y/n] ", Answer::yes},
      {"Print?", "", Buttons::yesNo, "what\nN\n", Answer::yes, "Print? [y/n]  [y/n] ", Answer::no},
      {"Print?", "", Buttons::yesNo, "", Answer::yes, "Print? [y/n] ", Answer::no}};
  for (const Case& c : cases) {
    std::ostringstream out;
    std::istringstream user(c.typed == nullptr ? "" : c.typed);
    ConsoleMessageBox box(out, c.typed == nullptr ? nullptr : &user, c.fixed);
    EXPECT_EQ(box.show(c.text, c.title, c.buttons, MessageBox::Icon::none), c.answer) << c.written;
    EXPECT_EQ(out.str(), c.written);
  }
}

}  // namespace
}  // namespace paperway::desktop
