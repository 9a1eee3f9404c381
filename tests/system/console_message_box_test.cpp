#include "backends/desktop/system/console_message_box.h"

#include <sstream>

#include "support/expect_each.h"

namespace paperway::desktop {
namespace {

using Answer = MessageBoxes::Answer;
using Buttons = MessageBoxes::Buttons;

TEST(ConsoleMessageBox, WritesTheMessageAndTakesTheAnswer) {
  // What is typed is null when nobody is there.
  using Case =
      std::tuple<const char*, const char*, Buttons, const char*, Answer, const char*, Answer>;
  const auto cases =
      table(Case{"Done", "", Buttons::ok, nullptr, Answer::no, "Done\n", Answer::ok},
            Case{"One\r\nTwo\rx",
                 "Report",
                 Buttons::ok,
                 "y\n",
                 Answer::no,
                 "Report: One\nTwo\rx\n",
                 Answer::ok},
            Case{"Print?", "", Buttons::yesNo, nullptr, Answer::yes, "Print? [yes]\n", Answer::yes},
            Case{"Print?", "", Buttons::yesNo, nullptr, Answer::no, "Print? [no]\n", Answer::no},
            Case{"Print?", "", Buttons::yesNo, "y\n", Answer::no, "Print? [y/n] ", Answer::yes},
            Case{"Print?",
                 "",
                 Buttons::yesNo,
                 "what\nN\n",
                 Answer::yes,
                 "Print? [y/n]  [y/n] ",
                 Answer::no},
            Case{"Print?", "", Buttons::yesNo, "", Answer::yes, "Print? [y/n] ", Answer::no});
  for (const auto& [text, title, buttons, typed, fixed, written, answer] : cases) {
    std::ostringstream out;
    std::istringstream user(typed == nullptr ? "" : typed);
    ConsoleMessageBox box(out, typed == nullptr ? nullptr : &user, fixed);
    EXPECT_EQ(box.show(text, title, buttons, MessageBoxes::Icon::none), answer) << written;
    EXPECT_EQ(out.str(), written);
  }
}

}  // namespace
}  // namespace paperway::desktop
