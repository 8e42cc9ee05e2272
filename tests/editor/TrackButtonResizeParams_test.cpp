#include <zowidgets/editor/TrackButton.h>

#include <gtest/gtest.h>

namespace {

using ResizeParams = TrackButton::ResizeParams;

TEST(TrackButtonResizeParams, StartAtZero) {
  ResizeParams const params;
  EXPECT_EQ(params.delta, 0);
  EXPECT_EQ(params.startHeight, 0);
}

TEST(TrackButtonResizeParams, ReadBothNumbers) {
  ResizeParams const params(LightweightString<char>("TrackBtnResize 12 -3"));
  EXPECT_EQ(params.delta, 12);
  EXPECT_EQ(params.startHeight, -3);
}

TEST(TrackButtonResizeParams, TheStringFormIsTheInverse) {
  ResizeParams const params(-7, 40);
  EXPECT_EQ(params.asString().str(), "TrackBtnResize -7 40");
  EXPECT_EQ(ResizeParams(params.asString()), params);
  EXPECT_EQ(params.requestedHeight(), 33);
}

TEST(TrackButtonResizeParams, OneNumberOnlyLeavesTheFirstFieldAtZero) {
  ResizeParams const params(LightweightString<char>("TrackBtnResize 5"));
  EXPECT_EQ(params.delta, 0);
  EXPECT_EQ(params.startHeight, 0);
}

TEST(TrackButtonResizeParams, AnotherBeginningGivesZeroAndZero) {
  ResizeParams const params(LightweightString<char>("Other 1 2"));
  EXPECT_EQ(params, ResizeParams(0, 0));
}

TEST(TrackButtonResizeParams, AnEmptyStringGivesZeroAndZero) {
  EXPECT_EQ(ResizeParams(LightweightString<char>()), ResizeParams(0, 0));
  EXPECT_EQ(ResizeParams(LightweightString<char>("TrackBtnResize")), ResizeParams(0, 0));
  EXPECT_EQ(ResizeParams(LightweightString<char>("TrackBtnResize x 4")), ResizeParams(0, 0));
}

TEST(TrackButtonResizeParams, TheMessageNameIsFixed) {
  EXPECT_STREQ(TrackButton::SoloSelectChanMsg, "SoloSelectChanMsg");
}

} // namespace
