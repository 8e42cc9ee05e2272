#include <zowidgets/host/base/IPAddress.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using WString = LightweightString<wchar_t>;

std::optional<IPAddress> parse(std::wstring const& text) { return IPAddress::fromString(WString(text)); }

TEST(IPAddress, ReadsFourPartsWithoutAPort) {
  std::optional<IPAddress> const address = parse(L"192.168.0.10");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->getPart(0), 192);
  EXPECT_EQ(address->getPart(1), 168);
  EXPECT_EQ(address->getPart(2), 0);
  EXPECT_EQ(address->getPart(3), 10);
  EXPECT_FALSE(address->hasPort());
  EXPECT_EQ(address->getPort(), 0u);
}

TEST(IPAddress, ReadsAPortAfterAColon) {
  std::optional<IPAddress> const address = parse(L"10.0.0.1:8080");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->getPart(0), 10);
  EXPECT_EQ(address->getPart(3), 1);
  EXPECT_TRUE(address->hasPort());
  EXPECT_EQ(address->getPort(), 8080u);
}

TEST(IPAddress, TakesTheLimitsOfEveryRange) {
  std::optional<IPAddress> const top = parse(L"255.255.255.255:65535");
  ASSERT_TRUE(top);
  for (int part = 0; part < 4; ++part)
    EXPECT_EQ(top->getPart(part), 255);
  EXPECT_EQ(top->getPort(), 65535u);
  std::optional<IPAddress> const bottom = parse(L"0.0.0.0:0");
  ASSERT_TRUE(bottom);
  EXPECT_EQ(bottom->getPart(0), 0);
  EXPECT_TRUE(bottom->hasPort());
  EXPECT_EQ(bottom->getPort(), 0u);
}

TEST(IPAddress, AllowsWhiteSpaceAroundTheWhole) {
  std::optional<IPAddress> const address = parse(L" \t1.2.3.4:5\r\n");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->toString().str(), L"1.2.3.4:5");
}

TEST(IPAddress, ReadsLeadingZerosAsDecimal) {
  std::optional<IPAddress> const address = parse(L"010.001.000.099:00080");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->getPart(0), 10);
  EXPECT_EQ(address->getPart(1), 1);
  EXPECT_EQ(address->getPart(3), 99);
  EXPECT_EQ(address->getPort(), 80u);
}

TEST(IPAddress, RefusesTooFewOrTooManyParts) {
  for (wchar_t const* text : {L"", L"   ", L"1", L"1.2.3", L"1.2.3.", L"1.2.3.4.", L"1.2.3.4.5", L".1.2.3.4"})
    EXPECT_FALSE(parse(text)) << "'" << WString(text).toUTF8().c_str() << "'";
}

TEST(IPAddress, RefusesPartsAndPortsOutOfRange) {
  for (wchar_t const* text : {L"256.1.1.1", L"1.256.1.1", L"1.1.1.999", L"1.2.3.4:65536", L"1.2.3.4:70000"})
    EXPECT_FALSE(parse(text)) << WString(text).toUTF8().c_str();
}

TEST(IPAddress, RefusesLongRunsOfDigitsWithoutOverflowing) {
  // Values that would wrap round to small numbers in 32 or 64 bits.
  EXPECT_FALSE(parse(L"4294967297.1.1.1"));
  EXPECT_FALSE(parse(L"1.2.3.4:4294967376"));
  EXPECT_FALSE(parse(L"0001.2.3.4"));
  EXPECT_FALSE(parse(L"1.2.3.4:000080"));
  EXPECT_FALSE(parse(std::wstring(10000, L'9')));
  EXPECT_FALSE(parse(L"1.2.3.4:" + std::wstring(10000, L'0')));
}

TEST(IPAddress, RefusesJunkAnywhere) {
  for (wchar_t const* text :
       {L"x1.2.3.4",  L"1.2.3.4x", L"1.2.3.4 x",   L"1. 2.3.4",    L"1.2.3 .4",   L"1..2.3",       L"-1.2.3.4",
        L"+1.2.3.4",  L"1.2.3.4:", L"1.2.3.4: 80", L"1.2.3.4::80", L"1.2.3.4:-1", L"1.2.3.4:+80",  L"1.2.3.4:80:81",
        L"0x1.2.3.4", L"1,2,3,4",  L"a.b.c.d",     L"1.2.3.4/24",  L"::1",        L"\u0661.2.3.4", L"1.2.3.\uff14"})
    EXPECT_FALSE(parse(text)) << WString(text).toUTF8().c_str();
}

TEST(IPAddress, RefusesANulInsideTheText) {
  std::wstring text = L"1.2.3.4";
  text.insert(3, 1, L'\0');
  EXPECT_FALSE(parse(text));
}

TEST(IPAddress, PrintsAndReadsBackTheSameAddress) {
  for (wchar_t const* text : {L"0.0.0.0", L"127.0.0.1", L"255.255.255.255:65535", L"10.20.30.40:0"}) {
    std::optional<IPAddress> const address = parse(text);
    ASSERT_TRUE(address) << WString(text).toUTF8().c_str();
    EXPECT_EQ(address->toString().str(), text);
    EXPECT_EQ(IPAddress::fromString(address->toString()), address);
  }
}

TEST(IPAddress, MadeFromPartsAndAPort) {
  IPAddress const address({172, 16, 5, 4}, 554);
  EXPECT_EQ(address.toString().str(), L"172.16.5.4:554");
  EXPECT_EQ(IPAddress().toString().str(), L"0.0.0.0");
  EXPECT_FALSE(IPAddress().hasPort());
}

TEST(IPAddress, APartOutsideTheFourIsZero) {
  IPAddress const address({1, 2, 3, 4});
  EXPECT_EQ(address.getPart(-1), 0);
  EXPECT_EQ(address.getPart(4), 0);
}

TEST(IPAddress, AddressesWithAndWithoutAPortDiffer) {
  EXPECT_NE(parse(L"1.2.3.4"), parse(L"1.2.3.4:0"));
  EXPECT_EQ(parse(L"1.2.3.4"), parse(L" 001.2.3.4 "));
}

} // namespace
