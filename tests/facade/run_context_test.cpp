#include "paperway/run_context.h"

#include "controls/form.h"
#include "session/run_state.h"
#include "support/class1_test.h"

namespace paperway {
namespace {

class RunContexts : public Class1Test {
 protected:
  std::string report(const std::string& name) const {
    replaceFile(path(name), "page\r\n\f", "test");
    return path(name);
  }
};

TEST_F(RunContexts, AreSharedByAThreadUnlessAHostHandsOneIn) {
  const RunContext own;
  Class1 apart(machine_.platform(), own);
  Class1 beside(machine_.platform());
  class1_.Guid_comp1("7");
  apart.Guid_comp1("8");
  class1_.Pagelenth = 11;
  class1_.PreviewReport({.Path1 = report("shared.txt"), .RPrint = 1});
  EXPECT_TRUE(beside.RtWindows1());
  EXPECT_FALSE(apart.RtWindows1());
  apart.PreviewReport({.Path1 = report("apart.txt"), .RCont = 1});
  EXPECT_EQ(runState().ModGuidComp + runState().ModPath1.string(), "7" + path("shared.txt"));
  EXPECT_EQ(own->ModGuidComp + own->ModPath1.string(), "8" + path("apart.txt"));
  EXPECT_EQ(runState().ModPagelenth * 100 + own->ModPagelenth, 1106);
  machine_.windows.forms.back()->unload();
  EXPECT_TRUE(class1_.RtWindows1());
  EXPECT_FALSE(apart.RtWindows1());
}

TEST_F(RunContexts, LiveAsLongAsTheirWindows) {
  Class1(machine_.platform(), RunContext()).PreviewReport({.Path1 = report("apart.txt")});
  machine_.windows.forms.back()->unload();
  EXPECT_FALSE(class1_.RtWindows1());
}

}  // namespace
}  // namespace paperway
