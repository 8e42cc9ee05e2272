#include <zowidgets/host/base/NumberText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using WString = LightweightString<wchar_t>;

TEST(NumberText, FloatsPrintWithTheAskedDecimals) {
  EXPECT_EQ(Zo::WStringFromFloat(359.5, 2, 0).str(), L"359.50");
  EXPECT_EQ(Zo::WStringFromFloat(100.0, 2, 0).str(), L"100.00");
  EXPECT_EQ(Zo::WStringFromFloat(0.125, 1, 0).str(), L"0.1");
  EXPECT_EQ(Zo::WStringFromFloat(2.5, 0, 0).str(), L"2");
  EXPECT_EQ(Zo::WStringFromFloat(-0.004, 2, 0).str(), L"-0.00");
  EXPECT_EQ(Zo::WStringFromFloat(1.0 / 3.0, 40, 0).str(), L"0.33333333333333331");
}

TEST(NumberText, FloatsArePaddedToTheMinimumWidth) {
  EXPECT_EQ(Zo::WStringFromFloat(7.25, 2, 7).str(), L"   7.25");
  EXPECT_EQ(Zo::WStringFromFloat(1234.5, 1, 3).str(), L"1234.5");
}

TEST(NumberText, TrimmedFloatsDropTheZerosThatEndTheFraction) {
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(0.25, 3).str(), L"0.25");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(25.0, 3).str(), L"25");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(30000.0 / 1001.0, 3).str(), L"29.97");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(0.5416666666666666, 3).str(), L"0.542");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(-0.0004, 3).str(), L"0");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(-2.5, 1).str(), L"-2.5");
  EXPECT_EQ(Zo::WStringFromFloatTrimmed(100.0, 0).str(), L"100"); // zeros before the point stay
}

TEST(NumberText, NonFiniteFloatsPrintAsWords) {
  EXPECT_EQ(Zo::WStringFromFloat(std::numeric_limits<double>::infinity(), 2, 0).str(), L"inf");
  EXPECT_EQ(Zo::WStringFromFloat(-std::numeric_limits<double>::infinity(), 2, 0).str(), L"-inf");
  EXPECT_EQ(Zo::WStringFromFloat(std::nan(""), 2, 0).str(), L"nan");
}

TEST(NumberText, IntegersPrintInDecimal) {
  EXPECT_EQ(Zo::WStringFromInteger(0).str(), L"0");
  EXPECT_EQ(Zo::WStringFromInteger(255).str(), L"255");
  EXPECT_EQ(Zo::WStringFromInteger(-42).str(), L"-42");
  EXPECT_EQ(Zo::WStringFromInteger(std::numeric_limits<long long>::min()).str(), L"-9223372036854775808");
}

TEST(NumberText, TheNumberAtTheStartIsRead) {
  EXPECT_EQ(Zo::FloatFromWString(WString(L"12.5"), -1.0), 12.5);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"  -3"), -1.0), -3.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"+.5"), -1.0), 0.5);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"7px"), -1.0), 7.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"1e2"), -1.0), 100.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"2.5e-1x"), -1.0), 0.25);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"1.2.3"), -1.0), 1.2);
}

TEST(NumberText, TextWithoutANumberGivesTheFallback) {
  EXPECT_EQ(Zo::FloatFromWString(WString(), 4.0), 4.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"abc"), 4.0), 4.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"-"), 4.0), 4.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"."), 4.0), 4.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"1e999"), 4.0), 4.0);
  EXPECT_EQ(Zo::FloatFromWString(WString(L"inf"), 4.0), 4.0);
}

TEST(NumberText, IntegersReadFromTheStartAfterBlanks) {
  EXPECT_EQ(Zo::IntFromWString(WString(L"12"), -1), 12);
  EXPECT_EQ(Zo::IntFromWString(WString(L"  -3"), -1), -3);
  EXPECT_EQ(Zo::IntFromWString(WString(L"+8"), -1), 8);
  EXPECT_EQ(Zo::IntFromWString(WString(L"7px"), -1), 7);
  EXPECT_EQ(Zo::IntFromWString(WString(L"2.9"), -1), 2) << "the point ends the number";
}

TEST(NumberText, TextWithNoIntegerOrOneOutOfRangeGivesTheFallback) {
  EXPECT_EQ(Zo::IntFromWString(WString(), 5), 5);
  EXPECT_EQ(Zo::IntFromWString(WString(L"Arial"), 5), 5);
  EXPECT_EQ(Zo::IntFromWString(WString(L"-"), 5), 5);
  EXPECT_EQ(Zo::IntFromWString(WString(L"+-4"), 5), 5);
  EXPECT_EQ(Zo::IntFromWString(WString(L"2147483647"), 5), 2147483647);
  EXPECT_EQ(Zo::IntFromWString(WString(L"2147483648"), 5), 5);
  EXPECT_EQ(Zo::IntFromWString(WString(L"-2147483648"), 5), -2147483647 - 1);
}

} // namespace
