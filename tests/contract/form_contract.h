#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "paperway/platform/windows.h"
#include "support/sample_form.h"

namespace paperway {

/// What a person does at any form, on every backend that shows forms. The Desk is that of
/// ReportWindowContract.
template <typename Desk>
class FormContract : public testing::Test {
 protected:
  FormContract() {
    sample->load();
    desk.platform().windows.show(sample);
  }
  ~FormContract() override { sample->unload(); }

  Desk desk;
  std::shared_ptr<SampleForm> sample = std::make_shared<SampleForm>();
};

TYPED_TEST_SUITE_P(FormContract);

TYPED_TEST_P(FormContract, ActsRunTheirHandlersOnce) {
  SampleForm& form = *this->sample;
  auto user = this->desk.user(form);
  const std::pair<std::function<void()>, const char*> acts[] = {
      {[] {}, "load front "},
      {[&] { form.Ch12.Value = 1; }, "Ch12 "},
      {[&] { user.click("Ch10"); }, "Ch10 "},
      {[&] { form.Ch10.Value = 1; }, ""},
      {[&] { form.OptElse.Value = true; }, "OptElse "},
      {[&] { user.click("Op(1)"); }, "Op(1) "},
      {[&] { form.Op[2].Value = true; }, "Op(2) "},
      {[&] { user.click("Op(2)"); }, ""},
      {[&] { user.scroll("VScroll1", 1000); }, ""},
      {[&] { user.type("Text1", "1x2\r3\b"); }, "change 1 change 12 change 123 change 12 "},
      {[&] { form.Text1.Text = "12"; }, ""},
      {[&] { form.Text1.Text = "0"; }, "change 0 "},
      {[&] { user.click("CmdOk"); }, ""},
      {[&] { form.Text1.Text = "1"; }, "change 1 "},
      {[&] { user.click("CmdOk"); }, "left CmdOk "},
      {[&] { user.alt('t'); }, ""},
      {[&] { user.alt('o'); }, "left CmdOk "},
      {[&] { form.Combo1.Text = "4"; }, ""},
      {[&] { user.choose("Combo1", "6"); }, "Combo1 "},
      {[&] { user.type("Combo1", "\b99"); }, ""},
      {[&] { user.click("CmdMenu"), user.chooseFromMenu("pppp"); }, "pppp "},
  };
  int row = 0;
  for (const auto& [act, log] : acts) {
    act();
    this->desk.expectAgreement(form);
    EXPECT_EQ(form.takeLog(), log) << "row " << row;
    ++row;
  }
  EXPECT_TRUE(form.Ch10.Value == 1 && form.Ch12.Value == 0);
  EXPECT_FALSE(form.Op[1].Value);
  EXPECT_TRUE(form.OptElse.Value) << "another container";
  EXPECT_EQ(form.VScroll1.Value, 100);
  EXPECT_EQ(form.Combo1.Text, "99");
  EXPECT_EQ(form.Combo1.ListIndex, -1);
  EXPECT_EQ(form.activeControl(), &form.CmdMenu);
}

REGISTER_TYPED_TEST_SUITE_P(FormContract, ActsRunTheirHandlersOnce);

}  // namespace paperway
