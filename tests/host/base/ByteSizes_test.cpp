#include <zowidgets/host/base/ByteSizes.h>

#include <gtest/gtest.h>

namespace {

std::wstring text(std::uint64_t bytes, int decimals = 1) { return bytesAsString(bytes, decimals).str(); }

TEST(ByteSizes, SmallCountsAreWholeBytes) {
  EXPECT_EQ(text(0), L"0 bytes");
  EXPECT_EQ(text(1), L"1 byte");
  EXPECT_EQ(text(1023), L"1023 bytes");
}

TEST(ByteSizes, LargerCountsStepBy1024WithTheirDecimals) {
  EXPECT_EQ(text(1024), L"1.0 KB");
  EXPECT_EQ(text(1536), L"1.5 KB");
  EXPECT_EQ(text(20ull << 20), L"20.0 MB");
  EXPECT_EQ(text(3ull << 30, 2), L"3.00 GB");
  EXPECT_EQ(text(2000ull << 30, 0), L"2 TB");
  EXPECT_EQ(text(5ull << 50), L"5.0 PB");
}

} // namespace
