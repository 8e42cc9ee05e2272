#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <gtest/gtest.h>

namespace {

TEST(MenuLabelColumns, TextAfterTwoBarsIsTheRightColumn) {
  MenuLabelColumns const columns = MenuLabelColumns::split(L"Home||(1.8 TB)");
  EXPECT_EQ(columns.left, LightweightString<wchar_t>(L"Home"));
  EXPECT_EQ(columns.right, LightweightString<wchar_t>(L"(1.8 TB)"));
  MenuLabelColumns const plain = MenuLabelColumns::split(L"a | b");
  EXPECT_EQ(plain.left, LightweightString<wchar_t>(L"a | b"));
  EXPECT_TRUE(plain.right.empty());
}

TEST(MenuLabelColumns, BothColumnsAreMeasuredWithAGapBetween) {
  Glib::FontDesc const font = UifStd::getFont();
  int const left = MenuLabelColumns::measure(L"Home", font);
  int const right = MenuLabelColumns::measure(L"(1.8 TB)", font);
  int const both = MenuLabelColumns::measure(L"Home||(1.8 TB)", font);
  EXPECT_GE(both, left + right + 2 * UifStd::getWidgetGap() - 1);
  EXPECT_LE(both, left + right + 2 * UifStd::getWidgetGap() + 1);
}

} // namespace
