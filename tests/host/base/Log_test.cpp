#include <zowidgets/host/base/Log.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

TEST(Log, ALineGoesToStandardErrorAndToEverySink) {
  std::vector<std::string> first;
  std::vector<std::string> second;
  int const a = addLogSink([&](std::string_view line) { first.emplace_back(line); });
  int const b = addLogSink([&](std::string_view line) { second.emplace_back(line); });
  testing::internal::CaptureStderr();
  LogBoth("the disk is full");
  std::string const console = testing::internal::GetCapturedStderr();
  removeLogSink(a);
  removeLogSink(b);
  EXPECT_EQ(console, "zowidgets: the disk is full\n");
  EXPECT_EQ(first, std::vector<std::string>{"the disk is full"});
  EXPECT_EQ(second, first);
}

TEST(Log, ARemovedSinkHearsNothingMore) {
  std::vector<std::string> heard;
  int const id = addLogSink([&](std::string_view line) { heard.emplace_back(line); });
  testing::internal::CaptureStderr();
  LogBoth("one");
  removeLogSink(id);
  LogBoth("two");
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(heard, std::vector<std::string>{"one"});
  removeLogSink(id); // a second removal is harmless
}
