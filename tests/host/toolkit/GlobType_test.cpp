#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <gtest/gtest.h>

namespace {

class Swatch : public Glob {
public:
  Swatch() : Glob(GlobCreationInfo(XY<int>(4, 4))) {}
  char const* idstring() const override { return "TestTypeSwatch"; }
};

TEST(GlobType, AWidgetIsOfTheTypeItsIdstringNames) {
  Swatch swatch;
  EXPECT_TRUE(swatch.isType("TestTypeSwatch"));
  EXPECT_FALSE(swatch.isType("Glob")) << "base classes do not count";
  EXPECT_FALSE(swatch.isType("testtypeswatch"));
  EXPECT_FALSE(swatch.isType(""));
  EXPECT_FALSE(swatch.isType(nullptr));
  PushButton button(PushButton::InitArgs(L"OK", XY<int>(40, 20)));
  EXPECT_TRUE(button.isType("PushButton"));
  EXPECT_FALSE(button.isType("TestTypeSwatch"));
}

TEST(GlobType, TooltipWindowsAnswerToTheirFamilyName) {
  TooltipWindow tip(L"Resets every grade", XY<int>(80, 20), XY<int>(10, 10));
  EXPECT_TRUE(tip.isType("ZoToolTip"));
  EXPECT_FALSE(Glob(GlobCreationInfo(XY<int>(1, 1))).isType("ZoToolTip"));
}

} // namespace
