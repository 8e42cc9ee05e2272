#include <zowidgets/host/widgets/values/RangeModel.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(RangeModel, StartsAsZeroToOneAtZero) {
  RangeModel range;
  EXPECT_EQ(range.min(), 0.0);
  EXPECT_EQ(range.max(), 1.0);
  EXPECT_EQ(range.value(), 0.0);
  EXPECT_EQ(range.step(), 0.0);
  EXPECT_EQ(range.page(), 0.0);
}

TEST(RangeModel, OrdersTheEndsOfTheRange) {
  RangeModel range(10.0, -10.0, 3.0);
  EXPECT_EQ(range.min(), -10.0);
  EXPECT_EQ(range.max(), 10.0);
  EXPECT_EQ(range.span(), 20.0);
  EXPECT_EQ(range.value(), 3.0);
}

TEST(RangeModel, ClampsValuesToTheRange) {
  RangeModel range(0.0, 100.0, 50.0);
  EXPECT_TRUE(range.setValue(250.0));
  EXPECT_EQ(range.value(), 100.0);
  EXPECT_TRUE(range.setValue(-3.0));
  EXPECT_EQ(range.value(), 0.0);
}

TEST(RangeModel, ANonNumberBecomesTheMinimum) {
  RangeModel range(2.0, 8.0, 5.0);
  range.setValue(kNaN);
  EXPECT_EQ(range.value(), 2.0);
  range.setValue(5.0);
  range.setValue(kInfinity);
  EXPECT_EQ(range.value(), 2.0);
}

TEST(RangeModel, SaysWhetherTheValueChanged) {
  RangeModel range(0.0, 1.0, 0.5);
  EXPECT_FALSE(range.setValue(0.5));
  EXPECT_TRUE(range.setValue(0.25));
  range.setValue(1.0);
  EXPECT_FALSE(range.setValue(7.0)) << "clamped to the value it already has";
}

TEST(RangeModel, SnapsToStepsCountedFromTheMinimum) {
  RangeModel range(1.0, 16.0, 0.0, 2.0);
  EXPECT_EQ(range.value(), 1.0);
  range.setValue(4.2);
  EXPECT_EQ(range.value(), 5.0);
  range.setValue(15.9);
  EXPECT_EQ(range.value(), 15.0) << "the last step inside the range";
  range.setValue(16.0);
  EXPECT_EQ(range.value(), 16.0) << "the maximum itself, when the snap goes past it";
}

TEST(RangeModel, ANewStepSnapsTheValueAgain) {
  RangeModel range(0.0, 10.0, 3.3);
  range.setStep(1.0);
  EXPECT_EQ(range.value(), 3.0);
  range.setStep(-4.0);
  EXPECT_EQ(range.step(), 0.0) << "a negative step means continuous";
}

TEST(RangeModel, StepSizeIsTheStepOrAHundredthOfTheRange) {
  RangeModel continuous(0.0, 200.0);
  EXPECT_DOUBLE_EQ(continuous.stepSize(), 2.0);
  RangeModel stepped(0.0, 200.0, 0.0, 25.0);
  EXPECT_EQ(stepped.stepSize(), 25.0);
}

TEST(RangeModel, APageIsTenStepsUnlessGiven) {
  RangeModel range(0.0, 100.0, 0.0, 2.0);
  EXPECT_EQ(range.pageSize(), 20.0);
  range.setPage(30.0);
  EXPECT_EQ(range.pageSize(), 30.0);
  range.setPage(500.0);
  EXPECT_EQ(range.page(), 100.0) << "no longer than the range";
  range.setPage(kNaN);
  EXPECT_EQ(range.page(), 0.0);
}

TEST(RangeModel, NarrowingTheRangeKeepsValueAndPageInside) {
  RangeModel range(0.0, 100.0, 80.0, 0.0, 60.0);
  range.setRange(0.0, 50.0);
  EXPECT_EQ(range.value(), 50.0);
  EXPECT_EQ(range.page(), 50.0);
  range.setRange(60.0, 70.0);
  EXPECT_EQ(range.value(), 60.0);
}

TEST(RangeModel, FractionsRunFromMinToMax) {
  RangeModel range(-1.0, 3.0, 0.0);
  EXPECT_DOUBLE_EQ(range.fraction(), 0.25);
  EXPECT_DOUBLE_EQ(range.fractionOf(3.0), 1.0);
  EXPECT_DOUBLE_EQ(range.fractionOf(10.0), 1.0);
  EXPECT_DOUBLE_EQ(range.fractionOf(kNaN), 0.0);
  EXPECT_DOUBLE_EQ(range.valueAt(0.5), 1.0);
  EXPECT_DOUBLE_EQ(range.valueAt(2.0), 3.0);
  EXPECT_DOUBLE_EQ(range.valueAt(-1.0), -1.0);
}

TEST(RangeModel, AnEmptyRangeHoldsItsOneValue) {
  RangeModel range(4.0, 4.0, 9.0);
  EXPECT_EQ(range.value(), 4.0);
  EXPECT_EQ(range.fraction(), 0.0);
  EXPECT_EQ(range.stepSize(), 0.0);
  EXPECT_FALSE(range.setValue(-2.0));
}

TEST(RangeModel, NonNumberEndsFallBackToTheOtherEndOrZero) {
  RangeModel range(kNaN, 5.0);
  EXPECT_EQ(range.min(), 0.0);
  EXPECT_EQ(range.max(), 5.0);
  range.setRange(2.0, kNaN);
  EXPECT_EQ(range.min(), 2.0);
  EXPECT_EQ(range.max(), 2.0);
}

} // namespace
