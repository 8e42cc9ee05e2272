#include "containers/SpaceDividerTestSupport.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <cmath>
#include <limits>

namespace {

using Divider = SpaceDivider;

TEST_F(SpaceDividerTest, NamesItselfAndStartsEmpty) {
  makeDivider(XY<int>(100, 50), kSideBySide);
  EXPECT_STREQ(divider->idstring(), "SpaceDivider");
  EXPECT_EQ(first(), nullptr);
  EXPECT_EQ(second(), nullptr);
  EXPECT_EQ(divider->getSplitter(), nullptr);
  EXPECT_EQ(divider->getSplitterType(), Divider::kDiscreetSplitter);
  EXPECT_EQ(divider->getConfiguredAxis(), kSideBySide);
}

TEST_F(SpaceDividerTest, HalfOfA101WidePanelWithAOnePixelLineIs50And50) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  ASSERT_EQ(divider->calcSplitterThickness(), 1);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->setSplitPos(0.5f);
  EXPECT_EQ(first()->width(), 50);
  EXPECT_EQ(second()->width(), 50);
  EXPECT_EQ(first()->height(), 40);
  EXPECT_EQ(first()->getX(), 0);
  EXPECT_EQ(second()->getX(), 51) << "one pixel of line between them";
  EXPECT_EQ(divider->getSplitter()->getBarPosition(), 50);
}

TEST_F(SpaceDividerTest, StackedTheFractionIsTheBottomChildsShare) {
  makeDivider(XY<int>(60, 101), kStacked, 0.25f);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->resize(60, 101);
  EXPECT_EQ(second()->height(), 25) << "a quarter of 100, from the bottom";
  EXPECT_EQ(first()->height(), 75);
  EXPECT_EQ(second()->getY(), 0);
  EXPECT_EQ(first()->getY(), 26);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 0.25f) << "read back from the bottom child every time";
}

TEST_F(SpaceDividerTest, TheStandardSplitterIsThickerAndPlacedBetween) {
  int const t = Splitter::calcThickness();
  makeDivider(XY<int>(200 + t, 40), kSideBySide, 0.5f, Divider::kStandardSplitter);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  EXPECT_EQ(divider->calcSplitterThickness(), t);
  EXPECT_STREQ(divider->getSplitter()->idstring(), "Splitter");
  EXPECT_EQ(first()->width(), 100);
  EXPECT_EQ(divider->getSplitter()->getX(), 100);
  EXPECT_EQ(second()->getX(), 100 + t);
}

TEST_F(SpaceDividerTest, MinimumsThatDoNotFitLeaveTheOtherChildsMinimumTheLastWord) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget)->setMinSize(XY<int>(70, 0));
  addChild(Divider::kSecondWidget)->setMinSize(XY<int>(60, 0));
  divider->setSplitPos(0.5f);
  EXPECT_EQ(first()->width(), 100 - 60) << "its own minimum of 70 loses to the other's 60";
  EXPECT_EQ(second()->width(), 100 - 70);
  EXPECT_EQ(divider->width(), 101);
}

TEST_F(SpaceDividerTest, ThePanelAdoptsTheSizesChildrenThatRefuseAccepted) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  StubbornBox::InitArgs left;
  left.useParentAllotment = true;
  left.minimum = XY<int>(70, 55);
  divider->createWidgetX<StubbornBox>(left, Divider::kFirstWidget);
  StubbornBox::InitArgs right = left;
  right.minimum = XY<int>(60, 0);
  divider->createWidgetX<StubbornBox>(right, Divider::kSecondWidget);
  divider->setSplitPos(0.5f);
  EXPECT_EQ(first()->width(), 70);
  EXPECT_EQ(second()->width(), 60);
  EXPECT_EQ(divider->height(), 55) << "side by side the panel is as tall as the first child";
  EXPECT_EQ(divider->width(), 101);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 0.7f) << "the split follows the first child's accepted width";
}

TEST_F(SpaceDividerTest, StackedThePanelIsAsWideAsTheFirstChildAccepted) {
  makeDivider(XY<int>(80, 101), kStacked);
  StubbornBox::InitArgs top;
  top.useParentAllotment = true;
  top.minimum = XY<int>(120, 0);
  divider->createWidgetX<StubbornBox>(top, Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->resize(80, 101);
  EXPECT_EQ(divider->width(), 120);
  EXPECT_EQ(divider->getSplitter()->width(), 120) << "the splitter spans the user area";
}

TEST_F(SpaceDividerTest, MaximumsCapAChildAndGiveTheRestToTheOther) {
  makeDivider(XY<int>(201, 40), kSideBySide);
  addChild(Divider::kFirstWidget)->setMaxSize(XY<int>(50, 0));
  addChild(Divider::kSecondWidget);
  divider->setSplitPos(0.5f);
  EXPECT_EQ(first()->width(), 50);
  EXPECT_EQ(second()->width(), 150) << "the first's share exceeded its maximum";
  EXPECT_TRUE(divider->hasMaxWidth(Divider::kFirstWidget));
  EXPECT_FALSE(divider->hasMaxHeight(Divider::kFirstWidget));
  EXPECT_FALSE(divider->hasMinWidth(Divider::kSecondWidget));
}

TEST_F(SpaceDividerTest, SetSplitPosClampsBadFractions) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->setSplitPos(-0.5f);
  EXPECT_EQ(first()->width(), 0);
  EXPECT_EQ(second()->width(), 100);
  divider->setSplitPos(3.0f);
  EXPECT_EQ(first()->width(), 100);
  divider->setSplitPos(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(divider->getSplitPos(), 0.0f);
}

TEST_F(SpaceDividerTest, TheSplitSurvivesResizing) {
  makeDivider(XY<int>(101, 40), kSideBySide, 0.3f);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->resize(201, 40);
  EXPECT_EQ(first()->width(), 60);
  EXPECT_EQ(second()->width(), 140);
  divider->resize(401, 80);
  EXPECT_EQ(first()->width(), 120);
  EXPECT_EQ(second()->height(), 80);
}

TEST_F(SpaceDividerTest, AChildThatResizesItselfMovesTheDivisionOverTheWholeLength) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  first()->setDimensions(XY<int>(30, 40));
  EXPECT_EQ(second()->width(), 100 - 30);
  EXPECT_EQ(second()->getX(), 31);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 30.0f / 101.0f) << "half of a one-pixel line is 0";
  second()->setDimensions(XY<int>(20, 40));
  EXPECT_EQ(first()->width(), 80);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 1.0f - 20.0f / 101.0f);
}

TEST_F(SpaceDividerTest, StackedAChildThatResizesItselfCountsFromTheBottom) {
  int const t = Splitter::calcThickness();
  makeDivider(XY<int>(40, 200 + t), kStacked, 0.5f, Divider::kStandardSplitter);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  second()->setDimensions(XY<int>(40, 50));
  EXPECT_EQ(first()->height(), 150);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), float(t / 2 + 50) / float(200 + t));
  first()->setDimensions(XY<int>(40, 120));
  EXPECT_EQ(second()->height(), 80);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 1.0f - float(t / 2 + 120) / float(200 + t));
}

TEST_F(SpaceDividerTest, AChildThatWillNotShrinkMakesTheNamedOneGiveWay) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  StubbornBox::InitArgs right;
  right.useParentAllotment = true;
  right.minimum = XY<int>(40, 0);
  divider->createWidgetX<StubbornBox>(right, Divider::kSecondWidget);
  first()->setDimensions(XY<int>(90, 40));
  EXPECT_EQ(second()->width(), 40);
  EXPECT_EQ(first()->width(), 60);
}

TEST_F(SpaceDividerTest, OneChildAloneFillsTheUserArea) {
  makeDivider(XY<int>(120, 60), kSideBySide);
  addChild(Divider::kSecondWidget);
  divider->resize(120, 60);
  EXPECT_EQ(divider->getSplitter(), nullptr);
  EXPECT_EQ(second()->getSize(), XY<int>(120, 60));
  EXPECT_EQ(second()->getPosition(), XY<int>(0, 0));
}

TEST_F(SpaceDividerTest, DestroyingAChildTakesTheSplitterAndTheNextMakesANewOne) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  ASSERT_NE(divider->getSplitter(), nullptr);
  divider->destroyWidget(Divider::kSecondWidget, kRedrawNow);
  EXPECT_EQ(second(), nullptr);
  EXPECT_EQ(divider->getSplitter(), nullptr);
  EXPECT_EQ(divider->getChildren().size(), 1u);
  EXPECT_EQ(first()->getSize(), XY<int>(101, 40)) << "the one left fills the area";
  Glob* again = addChild(Divider::kSecondWidget);
  ASSERT_NE(divider->getSplitter(), nullptr);
  divider->resize(101, 40);
  EXPECT_EQ(again->width(), 50);
  EXPECT_EQ(first()->width(), 50);
}

TEST_F(SpaceDividerTest, ChildrenCanBeMadeByClassName) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  GlobCreationInfo info;
  info.className = "TextLabel";
  info.useParentAllotment = true;
  Glob* label = divider->createWidgetX(info, Divider::kFirstWidget);
  ASSERT_NE(label, nullptr);
  EXPECT_STREQ(label->idstring(), "TextLabel");
  EXPECT_EQ(label->getSize(), XY<int>(50, 40)) << "its share, though it was alone";
  EXPECT_FALSE(label->isResizable());
  info.className = "NoSuchWidget";
  EXPECT_EQ(divider->createWidgetX(info, Divider::kSecondWidget), nullptr);
  EXPECT_EQ(second(), nullptr);
}

TEST_F(SpaceDividerTest, WithoutTheAllotmentRequestAChildGetsTheWholeArea) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  Glob* whole = divider->createWidgetX<Glob>(GlobCreationInfo(), Divider::kFirstWidget);
  EXPECT_EQ(whole->getSize(), XY<int>(101, 40));
}

TEST_F(SpaceDividerTest, ATakenSlotRefusesASecondChildAndKeepsTheFirst) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  Glob* kept = addChild(Divider::kFirstWidget);
  EXPECT_EQ(addChild(Divider::kFirstWidget), nullptr);
  EXPECT_EQ(first(), kept);
  EXPECT_EQ(divider->getChildren().size(), 1u);
}

TEST_F(SpaceDividerTest, HidingAChildOnTheDividersAxisShrinksThePanelAndShowingGrowsIt) {
  makeDivider(XY<int>(201, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->setWidgetVisible(second(), false);
  EXPECT_EQ(divider->width(), 100) << "the first child's width";
  EXPECT_FALSE(divider->getSplitter()->isVisible());
  EXPECT_EQ(first()->width(), 100);
  divider->setWidgetVisible(second(), true);
  EXPECT_EQ(divider->width(), 201) << "grown by the child and the line";
  EXPECT_TRUE(divider->getSplitter()->isVisible());
  EXPECT_EQ(first()->width(), 100);
  EXPECT_EQ(second()->width(), 100);
}

TEST_F(SpaceDividerTest, HidingAChildWhenDividerIDNamesTheOtherAxisKeepsThePanelsSize) {
  configb config;
  config.set(Divider::kDividerIDKey, "top");
  makeDivider(XY<int>(201, 40), kSideBySide, 0.5f, Divider::kDiscreetSplitter, config);
  ASSERT_EQ(divider->getConfiguredAxis(), kStacked);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  divider->setWidgetVisible(first(), false);
  EXPECT_EQ(divider->getSize(), XY<int>(201, 40));
  EXPECT_EQ(second()->getSize(), XY<int>(201, 40)) << "the other child takes the whole area";
  EXPECT_EQ(second()->getPosition(), XY<int>(0, 0));
  divider->setWidgetVisible(first(), true);
  EXPECT_EQ(divider->getSize(), XY<int>(201, 40));
  EXPECT_EQ(first()->width(), 100);
}

TEST_F(SpaceDividerTest, AChildThatHidesItselfIsFollowed) {
  makeDivider(XY<int>(201, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  first()->setVisible(false);
  EXPECT_EQ(divider->width(), 100);
  EXPECT_EQ(second()->getPosition(), XY<int>(0, 0));
  EXPECT_FALSE(divider->getSplitter()->isVisible());
  EXPECT_EQ(panel->width(), 201 + 20) << "the parent keeps its own size";
}

TEST_F(SpaceDividerTest, SetWidgetVisibleIgnoresStrangersAndNoChange) {
  makeDivider(XY<int>(201, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  Glob stranger(GlobCreationInfo(XY<int>(5, 5)));
  divider->setWidgetVisible(&stranger, false);
  divider->setWidgetVisible(first(), true);
  EXPECT_EQ(divider->width(), 201);
  EXPECT_TRUE(stranger.isVisible());
}

TEST_F(SpaceDividerTest, MinSizeWithOneVisibleChildStillCountsTheSplitter) {
  makeDivider(XY<int>(201, 40), kSideBySide);
  addChild(Divider::kFirstWidget)->setMinSize(XY<int>(30, 12));
  addChild(Divider::kSecondWidget)->setMinSize(XY<int>(50, 20));
  int const t = divider->calcSplitterThickness();
  EXPECT_EQ(divider->calcMinSize(), XY<int>(30 + 50 + t, 20));
  divider->setWidgetVisible(second(), false);
  EXPECT_EQ(divider->calcMinSize(), XY<int>(30 + 0 + t, 12)) << "the hidden child counts as nothing";
  EXPECT_EQ(divider->getMinSize(), divider->calcMinSize());
}

TEST_F(SpaceDividerTest, MinSizeTakesARowForAnAxisWithoutAMinimum) {
  makeDivider(XY<int>(60, 201), kStacked);
  addChild(Divider::kFirstWidget)->setMinSize(XY<int>(0, 30));
  addChild(Divider::kSecondWidget);
  int const row = UifStd::getRowHeight();
  EXPECT_EQ(divider->calcMinSize(), XY<int>(row, 30 + row + divider->calcSplitterThickness()));
}

TEST_F(SpaceDividerTest, ANestedDividersMinimumIsHonouredByItsParent) {
  makeDivider(XY<int>(301, 100), kSideBySide);
  addChild(Divider::kFirstWidget);
  SpaceDivider::InitArgs inner(XY<int>(), kStacked);
  inner.useParentAllotment = true;
  auto* nested = divider->createWidgetX<SpaceDivider>(inner, Divider::kSecondWidget);
  nested->createWidgetX<Glob>(GlobCreationInfo(), Divider::kFirstWidget)->setMinSize(XY<int>(200, 10));
  nested->createWidgetX<Glob>(GlobCreationInfo(), Divider::kSecondWidget);
  divider->setSplitPos(0.9f);
  EXPECT_EQ(nested->width(), 200);
  EXPECT_EQ(first()->width(), 100);
}

TEST_F(SpaceDividerTest, WidgetIDsFollowTheOrientation) {
  makeDivider(XY<int>(100, 40), kSideBySide);
  EXPECT_EQ(divider->getWidgetID(Divider::kFirstWidget), Divider::kLeftWidget);
  EXPECT_EQ(divider->getWidgetID(Divider::kSecondWidget), Divider::kRightWidget);
  SpaceDivider stacked(SpaceDivider::InitArgs(XY<int>(40, 100), kStacked));
  EXPECT_EQ(stacked.getWidgetID(Divider::kFirstWidget), Divider::kTopWidget);
  EXPECT_EQ(stacked.getWidgetID(Divider::kSecondWidget), Divider::kBottomWidget);
}

TEST_F(SpaceDividerTest, GetIndexOfZeroAndOtherStrangersIsTheSecond) {
  EXPECT_EQ(Divider::getIndex(0), Divider::kSecondWidget);
  EXPECT_EQ(Divider::getIndex(1), Divider::kFirstWidget);
  EXPECT_EQ(Divider::getIndex(2), Divider::kSecondWidget);
  EXPECT_EQ(Divider::getIndex(3), Divider::kFirstWidget);
  EXPECT_EQ(Divider::getIndex(4), Divider::kSecondWidget);
  EXPECT_EQ(Divider::getIndex(5), Divider::kSecondWidget);
  EXPECT_EQ(Divider::getIndex(-1), Divider::kSecondWidget);
}

TEST_F(SpaceDividerTest, IDStringsMatchExactly) {
  EXPECT_STREQ(Divider::asString(Divider::kLeftWidget), "left");
  EXPECT_STREQ(Divider::asString(Divider::kRightWidget), "right");
  EXPECT_STREQ(Divider::asString(Divider::kTopWidget), "top");
  EXPECT_STREQ(Divider::asString(Divider::kBottomWidget), "bottom");
  EXPECT_STREQ(Divider::asString(0), "");
  EXPECT_STREQ(Divider::asString(7), "");
  EXPECT_EQ(Divider::getWidgetIDFromString("bottom"), Divider::kBottomWidget);
  EXPECT_EQ(Divider::getWidgetIDFromString("Top"), Divider::kNoWidget);
  EXPECT_EQ(Divider::getWidgetIDFromString("left "), Divider::kNoWidget);
  EXPECT_EQ(Divider::getWidgetIDFromString(""), Divider::kNoWidget);
}

TEST_F(SpaceDividerTest, ACapitalisedDividerIDIsUnknownAndLeavesTheAxis) {
  configb config;
  config.set(Divider::kDividerIDKey, "Top");
  SpaceDivider sideBySide([&] {
    SpaceDivider::InitArgs args(XY<int>(100, 40), kSideBySide);
    args.config = config;
    return args;
  }());
  EXPECT_EQ(sideBySide.getConfiguredAxis(), kSideBySide);
  config.set(Divider::kDividerIDKey, "right");
  SpaceDivider stacked([&] {
    SpaceDivider::InitArgs args(XY<int>(100, 40), kStacked);
    args.config = config;
    return args;
  }());
  EXPECT_EQ(stacked.getConfiguredAxis(), kSideBySide);
  EXPECT_EQ(stacked.getOrientation(), kStacked) << "the key names the axis for visibility only";
}

TEST_F(SpaceDividerTest, ThePanelsOwnMovingEdgesAcrossTheAxisPassToTheChildren) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  auto* left = addChild<FlagRecorder>(Divider::kFirstWidget);
  auto* right = addChild<FlagRecorder>(Divider::kSecondWidget);
  left->seen.clear();
  right->seen.clear();
  divider->setResizeDirection(Glob::kResizeLive | Glob::kResizeRight | Glob::kResizeTop);
  divider->resize(121, 50);
  ASSERT_FALSE(left->seen.empty());
  EXPECT_EQ(left->seen.front(), unsigned(Glob::kResizeLive | Glob::kResizeTop)) << "left and right are the split's";
  EXPECT_EQ(right->seen.front(), unsigned(Glob::kResizeLive | Glob::kResizeTop));
  EXPECT_EQ(left->getResizeDirection(), 0u) << "cleared once sized";
}

TEST_F(SpaceDividerTest, ThePaletteReachesTheSplitter) {
  makeDivider(XY<int>(101, 40), kSideBySide);
  addChild(Divider::kFirstWidget);
  addChild(Divider::kSecondWidget);
  Palette changed = makeWindowPalette(divider->getPalette(), Colour(0.8, 0.2, 0.2));
  divider->setPalette(changed);
  EXPECT_EQ(divider->getSplitter()->getPalette().window(), changed.window());
}

} // namespace
