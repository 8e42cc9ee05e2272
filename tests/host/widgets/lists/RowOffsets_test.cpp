#include <zowidgets/host/widgets/lists/RowOffsets.h>

#include <gtest/gtest.h>

#include <climits>

TEST(RowOffsets, HeightsAreAskedOnlyAsFarAsAQuestionReaches) {
  RowOffsets offsets;
  int asked = 0;
  offsets.setMeasured(1'000'000, 20, [&](int) {
    ++asked;
    return 0;
  });
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(offsets.indexAt(39), 1);
  EXPECT_EQ(offsets.indexAt(40), 2);
  EXPECT_LE(asked, 100) << "the top of the rows asks a few";
  EXPECT_EQ(offsets.total(), 20'000'000) << "the rest count at the common height";
  EXPECT_FALSE(offsets.isExact());
  EXPECT_EQ(offsets.top(999'999), 19'999'980);
  EXPECT_EQ(asked, 999'999);
  offsets.measureAll();
  EXPECT_EQ(asked, 1'000'000);
  EXPECT_TRUE(offsets.isExact());
  EXPECT_TRUE(offsets.isUniform()) << "rows of one height keep no table";
  offsets.measureAll();
  EXPECT_EQ(asked, 1'000'000) << "each row is asked once";
}

TEST(RowOffsets, AnOddRowMakesATableAndTheSearchFindsEveryRow) {
  RowOffsets offsets;
  // Rows 0 to 2 are 10 high, row 3 is 35, the rest 10 again.
  offsets.setMeasured(6, 10, [](int index) { return index == 3 ? 35 : 10; });
  EXPECT_EQ(offsets.top(3), 30);
  EXPECT_TRUE(offsets.isUniform()) << "row 3 has not been asked yet";
  EXPECT_EQ(offsets.heightOf(3), 35);
  EXPECT_FALSE(offsets.isUniform());
  EXPECT_EQ(offsets.top(4), 65);
  EXPECT_EQ(offsets.indexAt(29), 2);
  EXPECT_EQ(offsets.indexAt(30), 3);
  EXPECT_EQ(offsets.indexAt(64), 3);
  EXPECT_EQ(offsets.indexAt(65), 4);
  EXPECT_EQ(offsets.indexAt(84), 5);
  EXPECT_EQ(offsets.total(), 85);
}

TEST(RowOffsets, TheTotalCountsUnaskedRowsAtTheCommonHeightUntilAllAreAsked) {
  RowOffsets offsets;
  offsets.setMeasured(200, 10, [](int index) { return index == 150 ? 30 : 0; });
  EXPECT_EQ(offsets.indexAt(15), 1);
  EXPECT_LT(offsets.measuredCount(), 150);
  EXPECT_EQ(offsets.total(), 2000);
  offsets.measureAll();
  EXPECT_TRUE(offsets.isExact());
  EXPECT_EQ(offsets.total(), 2020);
  EXPECT_EQ(offsets.indexAt(100000), 199);
}

TEST(RowOffsets, ARowAfterTheFirstOddOneStartsWhereTheOddOneEnds) {
  RowOffsets offsets;
  offsets.setMeasured(4, 10, [](int index) { return index == 0 ? 4 : 0; });
  EXPECT_EQ(offsets.top(1), 4);
  EXPECT_EQ(offsets.top(3), 24);
  offsets.measureAll();
  EXPECT_EQ(offsets.total(), 34);
}

TEST(RowOffsets, PointsOutsideTheRowsClampToTheEnds) {
  RowOffsets offsets;
  offsets.setMeasured(3, 10, [](int index) { return index + 5; });
  EXPECT_EQ(offsets.indexAt(-7), 0);
  EXPECT_EQ(offsets.indexAt(1000), 2);
  EXPECT_EQ(offsets.heightOf(3), 0);
  EXPECT_EQ(offsets.heightOf(-1), 0);
  offsets.setUniform(0, 10);
  EXPECT_EQ(offsets.indexAt(0), -1);
  EXPECT_EQ(offsets.total(), 0);
}

TEST(RowOffsets, ZeroOrNegativeHeightsTakeTheCommonHeight) {
  RowOffsets offsets;
  offsets.setMeasured(4, 12, [](int index) { return index % 2 == 0 ? -3 : 0; });
  offsets.measureAll();
  EXPECT_TRUE(offsets.isUniform());
  EXPECT_EQ(offsets.total(), 48);
}

TEST(RowOffsets, HugeRowsStopAtTheLargestOffsetInsteadOfWrapping) {
  RowOffsets offsets;
  offsets.setMeasured(4, 10, [](int) { return INT_MAX / 2; });
  offsets.measureAll();
  EXPECT_EQ(offsets.total(), INT_MAX);
  EXPECT_GE(offsets.top(3), offsets.top(2));
}
