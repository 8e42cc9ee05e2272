#include "FormTestSupport.h"

#include <zowidgets/forms/FoVDbl.h>
#include <zowidgets/forms/FoVInt.h>

namespace {

using FormNumbers = FormTest;
using Messages = std::vector<std::string>;

TEST_F(FormNumbers, AnIntegerFromOneToTenShowsOneWhenZeroIsEntered) {
  auto* number = new fo_v_int(width(), height(), 0, L"Count", 1, 10, 0.5);
  openForm({number});
  typeInto(*number, "0");
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"1"));
  EXPECT_EQ(number->m_get_value(), 1);
  EXPECT_EQ(received(), (Messages{"FormUp 000 1"}));
}

TEST_F(FormNumbers, ATrailingBadCharacterReadsAsTheNumberAndStaysAsTyped) {
  auto* number = new fo_v_int(width(), height(), 0, L"Count", 1, 10, 0.5);
  openForm({number});
  typeInto(*number, "5x");
  EXPECT_EQ(number->m_get_value(), 5);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"5x"));
  EXPECT_EQ(number->m_collect_entry(), 0);
  EXPECT_EQ(received(), (Messages{"FormUp 000 5x"}));
  // Until it is set again, which always writes the value back.
  number->m_set_entry(L"5x");
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"5"));
}

TEST_F(FormNumbers, ValidatingReportsAChangeNotAFailure) {
  fo_v_int number(width(), height(), 0, L"Count", 1, 10, 0.5);
  EXPECT_EQ(number.m_validate_entry(L"11"), 1);
  EXPECT_EQ(number.m_get_value(), 10);
  EXPECT_EQ(number.m_validate_entry(L"-3"), 1);
  EXPECT_EQ(number.m_get_value(), 1);
  EXPECT_EQ(number.m_validate_entry(L"  8"), 0);
  EXPECT_EQ(number.m_get_value(), 8);
  // Empty text reads the entry, which shows the minimum at the start.
  EXPECT_EQ(number.m_validate_entry(L""), 0);
  EXPECT_EQ(number.m_get_value(), 1);
}

TEST_F(FormNumbers, ADecimalsBoundIsRoundedToItsPrecision) {
  auto* number = new fo_v_dbl(width(), height(), 0, L"Level", 0.123, 0.987, 2, 0.5);
  openForm({number});
  EXPECT_DOUBLE_EQ(number->getMin(), 0.12);
  EXPECT_DOUBLE_EQ(number->getMax(), 0.99);
  EXPECT_DOUBLE_EQ(number->m_get_value(), 0.12) << "it starts at its minimum";
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"0.12"));
  typeInto(*number, "0.1");
  EXPECT_EQ(received(), (Messages{"FormUp 000 0.12"}));
}

TEST_F(FormNumbers, ANegativePrecisionBehavesAsZero) {
  fo_v_dbl negative(width(), height(), 0, L"Frames", 0.4, 9.6, -1, 0.5);
  fo_v_dbl zero(width(), height(), 0, L"Frames", 0.4, 9.6, 0, 0.5);
  EXPECT_EQ(negative.getFormat(), "%.0f");
  EXPECT_EQ(negative.getFormat(), zero.getFormat());
  EXPECT_DOUBLE_EQ(negative.getMin(), 0.0);
  EXPECT_DOUBLE_EQ(negative.getMax(), 10.0);
  for (wchar_t const* text : {L"3.6", L"12", L"-1"}) {
    negative.m_set_entry(text);
    zero.m_set_entry(text);
    EXPECT_EQ(negative.m_get_entry(), zero.m_get_entry())
        << "after " << LightweightString<wchar_t>(text).toUTF8().c_str();
  }
  negative.m_set_entry(L"3.6");
  EXPECT_EQ(negative.m_get_entry(), LightweightString<wchar_t>(L"4"));
}

TEST_F(FormNumbers, ADecimalClampsAndWritesWithItsFormat) {
  fo_v_dbl number(width(), height(), 0, L"Speed", 0.25, 4.0, 3, 0.5);
  EXPECT_EQ(number.getFormat(), "%.3f");
  EXPECT_EQ(number.m_validate_entry(L"8"), 1);
  EXPECT_DOUBLE_EQ(number.m_get_value(), 4.0);
  number.m_set_entry(L"1.23456");
  EXPECT_EQ(number.m_get_entry(), LightweightString<wchar_t>(L"1.235"));
  number.m_set_entry(L"abc");
  EXPECT_EQ(number.m_get_entry(), LightweightString<wchar_t>(L"0.250"));
}

} // namespace
