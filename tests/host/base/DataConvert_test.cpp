#include <zowidgets/host/base/DataConvert.h>

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace {

using DataConvert::convert;

int intOf(LightweightString<wchar_t> const& text) { return convert<LightweightString<wchar_t>, int>(text); }
unsigned unsignedOf(LightweightString<wchar_t> const& text) {
  return convert<LightweightString<wchar_t>, unsigned>(text);
}
double doubleOf(LightweightString<wchar_t> const& text) { return convert<LightweightString<wchar_t>, double>(text); }
bool boolOf(LightweightString<wchar_t> const& text) { return convert<LightweightString<wchar_t>, bool>(text); }

LightweightString<wchar_t> textOf(int value) { return convert<int, LightweightString<wchar_t>>(value); }
LightweightString<wchar_t> textOf(unsigned value) { return convert<unsigned, LightweightString<wchar_t>>(value); }
LightweightString<wchar_t> textOf(double value) { return convert<double, LightweightString<wchar_t>>(value); }
LightweightString<wchar_t> textOf(bool value) { return convert<bool, LightweightString<wchar_t>>(value); }

bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

constexpr double kInf = std::numeric_limits<double>::infinity();

} // namespace

TEST(DataConvert, IntWritesPlainDecimal) {
  EXPECT_EQ(textOf(0), L"0");
  EXPECT_EQ(textOf(42), L"42");
  EXPECT_EQ(textOf(-17), L"-17");
  EXPECT_EQ(textOf(INT_MAX), L"2147483647");
  EXPECT_EQ(textOf(INT_MIN), L"-2147483648");
}

TEST(DataConvert, IntReadsItsOwnOutput) {
  for (int value : {0, 1, -1, 42, -17, INT_MAX, INT_MIN, INT_MAX - 1, INT_MIN + 1})
    EXPECT_EQ(intOf(textOf(value)), value) << value;
}

TEST(DataConvert, IntIgnoresSurroundingSpaceAndTakesPlusAndLeadingZeros) {
  EXPECT_EQ(intOf(L"  42\t\n"), 42);
  EXPECT_EQ(intOf(L"+7"), 7);
  EXPECT_EQ(intOf(L" -7 "), -7);
  EXPECT_EQ(intOf(L"007"), 7);
  EXPECT_EQ(intOf(L"-0"), 0);
}

TEST(DataConvert, MalformedIntGivesZero) {
  for (wchar_t const* text :
       {L"", L"   ", L"12abc", L"abc", L"1.5", L"1e3", L"0x10", L"--1", L"+-1", L"-+1", L"+", L"-", L"1 2",
        L"\u0661\u0662" /* Arabic-Indic digits */, L"\u00a012" /* no-break space is not white space */})
    EXPECT_EQ(intOf(text), 0) << toNarrow(text);
}

TEST(DataConvert, IntOutOfRangeSaturates) {
  EXPECT_EQ(intOf(L"2147483648"), INT_MAX);
  EXPECT_EQ(intOf(L"-2147483649"), INT_MIN);
  EXPECT_EQ(intOf(L"99999999999"), INT_MAX);
  EXPECT_EQ(intOf(L"-99999999999"), INT_MIN);
  EXPECT_EQ(intOf(L"123456789012345678901234567890"), INT_MAX);
  EXPECT_EQ(intOf(L"-123456789012345678901234567890"), INT_MIN);
}

TEST(DataConvert, UnsignedForms) {
  EXPECT_EQ(textOf(0u), L"0");
  EXPECT_EQ(textOf(UINT_MAX), L"4294967295");
  EXPECT_EQ(unsignedOf(textOf(UINT_MAX)), UINT_MAX);
  EXPECT_EQ(unsignedOf(L" +12 "), 12u);
  EXPECT_EQ(unsignedOf(L"4294967296"), UINT_MAX);
  EXPECT_EQ(unsignedOf(L"99999999999999999999999"), UINT_MAX);
  EXPECT_EQ(unsignedOf(L"-1"), 0u);
  EXPECT_EQ(unsignedOf(L"-0"), 0u);
  EXPECT_EQ(unsignedOf(L"-99999999999999999999999"), 0u);
  EXPECT_EQ(unsignedOf(L"12abc"), 0u);
  EXPECT_EQ(unsignedOf(L""), 0u);
}

TEST(DataConvert, DoubleWritesShortestForm) {
  EXPECT_EQ(textOf(0.0), L"0");
  EXPECT_EQ(textOf(-0.0), L"-0");
  EXPECT_EQ(textOf(1.0), L"1");
  EXPECT_EQ(textOf(0.1), L"0.1");
  EXPECT_EQ(textOf(-2.5), L"-2.5");
  EXPECT_EQ(textOf(1e300), L"1e+300");
  EXPECT_EQ(textOf(1.5e-7), L"1.5e-07");
  EXPECT_EQ(textOf(0.1 + 0.2), L"0.30000000000000004");
}

TEST(DataConvert, InfinityAndNaNForms) {
  EXPECT_EQ(textOf(kInf), L"inf");
  EXPECT_EQ(textOf(-kInf), L"-inf");
  EXPECT_EQ(textOf(std::numeric_limits<double>::quiet_NaN()), L"nan");
  EXPECT_EQ(textOf(-std::numeric_limits<double>::quiet_NaN()), L"nan");
  for (wchar_t const* text : {L"inf", L"INF", L"Infinity", L"+inf", L" inf "})
    EXPECT_EQ(doubleOf(text), kInf) << toNarrow(text);
  EXPECT_EQ(doubleOf(L"-inf"), -kInf);
  EXPECT_EQ(doubleOf(L"-INFINITY"), -kInf);
  for (wchar_t const* text : {L"nan", L"NaN", L"-nan", L"+nan"})
    EXPECT_TRUE(std::isnan(doubleOf(text))) << toNarrow(text);
}

TEST(DataConvert, DoubleReadsCommonSpellings) {
  EXPECT_EQ(doubleOf(L" 2.5 "), 2.5);
  EXPECT_EQ(doubleOf(L"+2.5"), 2.5);
  EXPECT_EQ(doubleOf(L"1e3"), 1000.0);
  EXPECT_EQ(doubleOf(L"1E-3"), 0.001);
  EXPECT_EQ(doubleOf(L".5"), 0.5);
  EXPECT_EQ(doubleOf(L"5."), 5.0);
  EXPECT_EQ(doubleOf(L"42"), 42.0);
  EXPECT_TRUE(sameBits(doubleOf(L"-0"), -0.0));
}

TEST(DataConvert, MalformedDoubleGivesZero) {
  for (wchar_t const* text : {L"", L"  ", L"abc", L"1,5", L"1.5x", L"1e", L"e5", L"--1", L"+-1", L"++1", L"0x1p3",
                              L"1 000", L"\u0661", L"in f"}) {
    double value = doubleOf(text);
    EXPECT_TRUE(sameBits(value, 0.0)) << toNarrow(text) << " gave " << value;
  }
}

TEST(DataConvert, DoubleOutOfRangeGoesToInfinityOrZero) {
  EXPECT_EQ(doubleOf(L"1e400"), kInf);
  EXPECT_EQ(doubleOf(L"-1e400"), -kInf);
  EXPECT_EQ(doubleOf(L"1e99999999999999999999"), kInf);
  EXPECT_EQ(doubleOf(L"1" + std::wstring(400, L'0')), kInf);
  EXPECT_EQ(doubleOf(L"0." + std::wstring(400, L'0') + L"1e750"), kInf);
  EXPECT_TRUE(sameBits(doubleOf(L"1e-400"), 0.0));
  EXPECT_TRUE(sameBits(doubleOf(L"-1e-400"), -0.0));
  EXPECT_TRUE(sameBits(doubleOf(L"1e-99999999999999999999"), 0.0));
  EXPECT_TRUE(sameBits(doubleOf(L"0." + std::wstring(400, L'0') + L"1"), 0.0));
  EXPECT_TRUE(sameBits(doubleOf(L"123" + std::wstring(400, L'0') + L"e-800"), 0.0));
}

TEST(DataConvert, LongSpellingsInRangeReadCorrectly) {
  EXPECT_EQ(doubleOf(L"1" + std::wstring(400, L'0') + L"e-500"), 1e-100);
  EXPECT_EQ(doubleOf(L"0." + std::wstring(400, L'0') + L"1e500"), 1e99);
}

TEST(DataConvert, SubnormalsAndExtremesRoundTrip) {
  using Limits = std::numeric_limits<double>;
  for (double value :
       {Limits::denorm_min(), -Limits::denorm_min(), Limits::min(), Limits::min() / 3, Limits::max(), Limits::lowest(),
        Limits::epsilon(), std::nextafter(Limits::min(), 0.0), std::nextafter(1.0, 2.0), std::nextafter(1.0, 0.0)}) {
    EXPECT_TRUE(sameBits(doubleOf(textOf(value)), value)) << toNarrow(textOf(value));
  }
  EXPECT_EQ(textOf(Limits::denorm_min()), L"5e-324");
}

TEST(DataConvert, DoubleRoundTripIsExactForRandomBitPatterns) {
  std::mt19937_64 random(20240611);
  int checked = 0;
  for (int i = 0; i < 20000; ++i) {
    std::uint64_t bits = random();
    if (i % 4 == 1)
      bits &= 0x800FFFFFFFFFFFFFull; // subnormals
    if (i % 4 == 2)
      bits |= 0x7FE0000000000000ull; // the largest exponents, infinities and NaNs
    double value = std::bit_cast<double>(bits);
    double back = doubleOf(textOf(value));
    if (std::isnan(value)) {
      EXPECT_TRUE(std::isnan(back));
      continue;
    }
    ASSERT_TRUE(sameBits(back, value)) << toNarrow(textOf(value));
    ++checked;
  }
  EXPECT_GT(checked, 17000); // a quarter of the third group are NaNs
}

TEST(DataConvert, IntRoundTripsForRandomValues) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> any(INT_MIN, INT_MAX);
  for (int i = 0; i < 5000; ++i) {
    int value = any(random);
    ASSERT_EQ(intOf(textOf(value)), value);
    auto asUnsigned = static_cast<unsigned>(value);
    ASSERT_EQ(unsignedOf(textOf(asUnsigned)), asUnsigned);
  }
}

TEST(DataConvert, BoolWritesTrueAndFalse) {
  EXPECT_EQ(textOf(true), L"true");
  EXPECT_EQ(textOf(false), L"false");
  EXPECT_TRUE(boolOf(textOf(true)));
  EXPECT_FALSE(boolOf(textOf(false)));
}

TEST(DataConvert, BoolReadsWordsInAnyCaseAndNonZeroNumbers) {
  for (wchar_t const* text : {L"true", L"TRUE", L"True", L" true ", L"1", L"-2", L"0.5", L"1e3", L"inf", L"+1"})
    EXPECT_TRUE(boolOf(text)) << toNarrow(text);
  for (wchar_t const* text : {L"false", L"FALSE", L"0", L"0.0", L"-0", L"nan", L"", L"  ", L"yes", L"on", L"t",
                              L"truex", L"tru", L"1abc", L"\u0131"})
    EXPECT_FALSE(boolOf(text)) << toNarrow(text);
}

TEST(DataConvert, NarrowFormsMatchWideForms) {
  using CString = LightweightString<char>;
  for (int value : {0, -5, INT_MAX, INT_MIN}) {
    CString text = convert<int, CString>(value);
    EXPECT_EQ(toWide(text.view()), textOf(value));
    EXPECT_EQ((convert<CString, int>(text)), value);
  }
  for (double value : {0.1, -1e-300, kInf, 123.0}) {
    CString text = convert<double, CString>(value);
    EXPECT_EQ(toWide(text.view()), textOf(value));
    EXPECT_TRUE(sameBits(convert<CString, double>(text), value));
  }
  EXPECT_EQ((convert<bool, CString>(true)), "true");
  EXPECT_EQ((convert<bool, CString>(false)), "false");
  EXPECT_TRUE((convert<CString, bool>(CString(" True "))));
  EXPECT_FALSE((convert<CString, bool>(CString("no"))));
  EXPECT_EQ((convert<CString, int>(CString("12abc"))), 0);
  EXPECT_EQ((convert<CString, double>(CString("\xc3\xa9"))), 0.0);
  EXPECT_EQ((convert<CString, int>(CString("99999999999"))), INT_MAX);
}

TEST(DataConvert, ConstrainClampsInPlace) {
  int value = 5;
  DataConvert::constrain(value, 0, 10);
  EXPECT_EQ(value, 5);
  value = -3;
  DataConvert::constrain(value, 0, 10);
  EXPECT_EQ(value, 0);
  value = 11;
  DataConvert::constrain(value, 0, 10);
  EXPECT_EQ(value, 10);
  double real = 2.5;
  DataConvert::constrain(real, 0.0, 1.0);
  EXPECT_EQ(real, 1.0);
}

TEST(DataConvert, ConstrainWithSwappedBoundsAndNaN) {
  int below = 1;
  DataConvert::constrain(below, 5, 3);
  EXPECT_EQ(below, 5);
  int between = 4;
  DataConvert::constrain(between, 5, 3);
  EXPECT_EQ(between, 5);
  int above = 9;
  DataConvert::constrain(above, 5, 3);
  EXPECT_EQ(above, 3);
  double nan = std::numeric_limits<double>::quiet_NaN();
  DataConvert::constrain(nan, 0.0, 1.0);
  EXPECT_TRUE(std::isnan(nan));
}

TEST(DataConvert, FtisqlRoundsHalvesAwayFromZero) {
  EXPECT_EQ(ftisql(0.0), 0);
  EXPECT_EQ(ftisql(2.4), 2);
  EXPECT_EQ(ftisql(2.5), 3);
  EXPECT_EQ(ftisql(-2.5), -3);
  EXPECT_EQ(ftisql(-2.4), -2);
  EXPECT_EQ(ftisql(-2.6), -3);
  EXPECT_EQ(ftisql(0.5), 1);
  EXPECT_EQ(ftisql(-0.5), -1);
  EXPECT_EQ(ftisql(0.49999999999999994), 0);
}

TEST(DataConvert, FtisqqTruncatesTowardZero) {
  EXPECT_EQ(ftisqq(2.9), 2);
  EXPECT_EQ(ftisqq(-2.9), -2);
  EXPECT_EQ(ftisqq(2.5), 2);
  EXPECT_EQ(ftisqq(-0.99), 0);
  EXPECT_EQ(ftisqq(7.0), 7);
}

TEST(DataConvert, DoubleToIntSaturatesAndNaNGivesZero) {
  double nan = std::numeric_limits<double>::quiet_NaN();
  for (auto convertToInt : {ftisql, ftisqq}) {
    EXPECT_EQ(convertToInt(1e10), INT_MAX);
    EXPECT_EQ(convertToInt(-1e10), INT_MIN);
    EXPECT_EQ(convertToInt(kInf), INT_MAX);
    EXPECT_EQ(convertToInt(-kInf), INT_MIN);
    EXPECT_EQ(convertToInt(nan), 0);
    EXPECT_EQ(convertToInt(2147483647.0), INT_MAX);
    EXPECT_EQ(convertToInt(-2147483648.0), INT_MIN);
    EXPECT_EQ(convertToInt(2147483648.0), INT_MAX);
    EXPECT_EQ(convertToInt(-2147483649.0), INT_MIN);
  }
  EXPECT_EQ(ftisql(2147483646.6), INT_MAX);
  EXPECT_EQ(ftisql(2147483647.4), INT_MAX);
  EXPECT_EQ(ftisql(-2147483648.4), INT_MIN);
  EXPECT_EQ(ftisqq(2147483647.9), INT_MAX);
  EXPECT_EQ(ftisqq(-2147483648.9), INT_MIN);
  EXPECT_EQ(ftisqq(2147483646.9), INT_MAX - 1);
}

TEST(DataConvert, DoubleToIntAgreesWithStandardRoundingInRange) {
  std::mt19937 random(99);
  std::uniform_real_distribution<double> inRange(-2.1e9, 2.1e9);
  std::uniform_int_distribution<int> whole(-1000, 1000);
  for (int i = 0; i < 5000; ++i) {
    double value = i % 2 ? inRange(random) : whole(random) + 0.5;
    ASSERT_EQ(ftisql(value), std::lround(value)) << value;
    ASSERT_EQ(ftisqq(value), static_cast<long>(std::trunc(value))) << value;
  }
}
