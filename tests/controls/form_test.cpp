#include "controls/form.h"

#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/headless_desk.h"
#include "support/sample_form.h"

namespace paperway {
namespace {

TEST(Form, ControlsOutOfReachDoNothing) {
  const std::pair<const char*, std::function<void(SampleForm&)>> cases[] = {
      {"disabled", [](SampleForm& f) { f.Op[1].Enabled = false; }},
      {"hidden", [](SampleForm& f) { f.Op[1].Visible = false; }},
      {"in a hidden frame", [](SampleForm& f) { f.Frame1.Visible = false; }},
      {"in a disabled frame", [](SampleForm& f) { f.Frame1.Enabled = false; }},
      {"on a disabled form", [](SampleForm& f) { f.Enabled = false; }},
      {"in a frame off the window", [](SampleForm& f) { f.Frame1.Top = 20000; }},
  };
  for (const auto& [what, change] : cases) {
    SampleForm form;
    change(form);
    EXPECT_FALSE(form.click("Op(1)")) << what;
    EXPECT_FALSE(form.Op[1].SetFocus()) << what;
    EXPECT_THROW(headless::User(form).click("Op(1)"), std::logic_error) << what;
    EXPECT_EQ(form.log, "") << what;
  }
}

TEST(Form, LoadsAndUnloadsOnce) {
  const auto form = std::make_shared<SampleForm>();
  HeadlessDesk desk;
  form->activate();
  form->load();
  form->load();
  desk.machine.windows.show(form);
  form->unload();
  form->unload();
  form->activate();
  EXPECT_EQ(form->log, "load front closed ");
  EXPECT_NE(errorOf([&] { form->click("Op(3)"); }).find("Op(3)"), std::string::npos);
}

TEST(Caption, AccessKeysAndPlainTexts) {
  const std::tuple<const char*, char32_t, const char*> cases[] = {
      {"&First", 'F', "First"},
      {" C&lose", 'L', " Close"},
      {"a && b", 0, "a & b"},
      {"R&&&D", 'D', "R&D"},
      {"end&", 0, "end"},
  };
  for (const auto& [caption, key, text] : cases) {
    EXPECT_EQ(accessKeyOf(caption), key) << caption;
    EXPECT_EQ(captionText(caption), text) << caption;
  }
}

}  // namespace
}  // namespace paperway
