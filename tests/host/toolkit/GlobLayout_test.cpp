#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

// A plain widget of a given size, for placing.
Glob* block(int w, int h) { return new Glob(GlobCreationInfo(XY<int>(w, h))); }

struct GlobLayoutTest : HeadlessScreenTest {
  // A 200 by 100 parent with a 10-pixel uniform border: its user area is
  // [10, 190) x [10, 90).
  Glob parent{GlobCreationInfo(XY<int>(200, 100)).setBorder(Border(10))};
};

TEST_F(GlobLayoutTest, CornerBuildersPutTheMatchingCornerInsideTheArea) {
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::UserTopLeft(0, 0))->getPosition(), XY<int>(10, 80));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::UserTopRight(0, 0))->getPosition(), XY<int>(170, 80));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::UserBottomLeft(0, 0))->getPosition(), XY<int>(10, 10));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::UserBottomRight(0, 0))->getPosition(), XY<int>(170, 10));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::TopLeft(3, 4))->getPosition(), XY<int>(13, 76));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::TopRight(3, 4))->getPosition(), XY<int>(167, 76));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::BottomLeft(3, 4))->getPosition(), XY<int>(13, 14));
  EXPECT_EQ(parent.addChild(block(20, 10), Glob::BottomRight(3, 4))->getPosition(), XY<int>(167, 14));
}

TEST_F(GlobLayoutTest, CentringBuildersRoundDownToTheirGrid) {
  // Area 180 x 80 at (10, 10); a 21 x 11 child leaves 159 x 69.
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::Centre(0, 0))->getPosition(), XY<int>(10 + 79, 10 + 34));
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::Centre(0, 0, 2))->getPosition(), XY<int>(10 + 78, 10 + 34));
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::LeftCentre(5, 0))->getPosition(), XY<int>(15, 44));
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::RightCentre(5, 0))->getPosition(), XY<int>(190 - 5 - 21, 44));
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::UserTopCentre(0, 2))->getPosition(), XY<int>(89, 90 - 2 - 11));
  EXPECT_EQ(parent.addChild(block(21, 11), Glob::UserBottomCentre(0, 2))->getPosition(), XY<int>(89, 12));
}

TEST_F(GlobLayoutTest, SiblingBuildersHonourGapSurroundAndAlignment) {
  Glob* a = parent.addChild(block(40, 20), Glob::UserTopLeft(0, 0), WidgetSurround{0, 0, 0, 3});
  // Below: a's bottom surround (3) + gap (5) + own top surround (2).
  Glob* b = parent.addChild(block(20, 10), Glob::Below(5), WidgetSurround{0, 0, 2, 0});
  EXPECT_EQ(b->getPosition(), XY<int>(10, 70 - 3 - 5 - 2 - 10));
  Glob* c = parent.addChild(block(20, 10), Glob::Below(0, a, kAlignEnd));
  EXPECT_EQ(c->getPosition(), XY<int>(10 + 40 - 20, 70 - 3 - 10));
  Glob* d = parent.addChild(block(20, 10), Glob::Below(0, a, kAlignCentre));
  EXPECT_EQ(d->getX(), 20);
  Glob* e = parent.addChild(block(10, 8), Glob::RightOf(4, a));
  EXPECT_EQ(e->getPosition(), XY<int>(54, 70 + 20 - 8)); // tops aligned
  Glob* f = parent.addChild(block(10, 8), Glob::RightOf(4, a, kAlignEnd));
  EXPECT_EQ(f->getY(), 70); // bottoms aligned
  Glob* g = parent.addChild(block(10, 8), Glob::LeftOf(4, e));
  EXPECT_EQ(g->getX(), 54 - 4 - 10);
  Glob* h = parent.addChild(block(10, 8), Glob::Above(6, b));
  EXPECT_EQ(h->getY(), b->getY() + 10 + 2 + 6); // b's top surround, then the gap
}

TEST_F(GlobLayoutTest, NullSiblingMeansTheWidgetAddedLast) {
  Glob* first = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0));
  Glob* second = parent.addChild(block(30, 10), Glob::Below(2));
  Glob* third = parent.addChild(block(30, 10), Glob::Below(2));
  EXPECT_EQ(second->getY(), first->getY() - 2 - 10);
  EXPECT_EQ(third->getY(), second->getY() - 2 - 10);
  EXPECT_EQ(third->getWidgetPosition().sibling, second);
}

TEST_F(GlobLayoutTest, HidingAWidgetMovesTheRowsBelowUpAndShowingMovesThemBack) {
  Glob* a = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0));
  Glob* b = parent.addChild(block(30, 10), Glob::Below(2));
  Glob* c = parent.addChild(block(30, 10), Glob::Below(2));
  int const cWas = c->getY();
  b->setVisible(false);
  EXPECT_EQ(c->getY(), a->getY() - 2 - 10); // c took b's place
  b->setVisible(true);
  EXPECT_EQ(c->getY(), cWas);
}

TEST_F(GlobLayoutTest, ResizingAWidgetMovesTheWidgetsPlacedAgainstIt) {
  Glob* a = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0));
  Glob* b = parent.addChild(block(30, 10), Glob::Below(2));
  Glob* beside = parent.addChild(block(10, 10), Glob::RightOf(3, a));
  a->resize(50, 25);
  EXPECT_EQ(a->getY(), 90 - 25); // still at the top
  EXPECT_EQ(b->getY(), 90 - 25 - 2 - 10);
  EXPECT_EQ(beside->getX(), 10 + 50 + 3);
}

TEST_F(GlobLayoutTest, ResizingTheParentKeepsTopAnchoredChildrenAtTheTop) {
  Glob* top = parent.addChild(block(30, 10), Glob::UserTopRight(0, 0));
  parent.resize(300, 150);
  EXPECT_EQ(top->getPosition(), XY<int>(300 - 10 - 30, 150 - 10 - 10));
}

TEST_F(GlobLayoutTest, RemovingASiblingPassesItsPlaceOn) {
  Glob* a = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0));
  Glob* b = parent.addChild(block(30, 10), Glob::Below(2));
  Glob* c = parent.addChild(block(30, 10), Glob::Below(2));
  parent.removeWidget(b);
  EXPECT_EQ(c->getY(), a->getY() - 2 - 10);
  EXPECT_FALSE(is_good_glob_ptr(b));
}

TEST_F(GlobLayoutTest, SetWidgetDetailsReplacesThePlacementAndReflows) {
  Glob* a = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0));
  a->setWidgetDetails(Glob::UserBottomRight(1, 1), WidgetSurround{});
  EXPECT_EQ(a->getPosition(), XY<int>(190 - 1 - 30, 11));
}

TEST_F(GlobLayoutTest, RowSeparatorSurroundComesFromTheMetrics) {
  WidgetSurround below = UifStd::getRowSeparator(kRelativeBelow);
  Glob* a = parent.addChild(block(30, 10), Glob::UserTopLeft(0, 0), below);
  Glob* b = parent.addChild(block(30, 10), Glob::Below(0));
  EXPECT_EQ(b->getY(), a->getY() - below.bottom - 10);
}

TEST_F(GlobLayoutTest, UserAreaOfAPanelExcludesTitleBarAndFooter) {
  StandardPanel::InitArgs args(XY<int>(300, 200));
  args.setBorder(Border(4));
  StandardPanel plain(args);
  EXPECT_EQ(plain.getUserArea(), Zo::Box<int>(4, 4, 296, 196));
  args.standardWidgets = StandardPanel::kTitle | StandardPanel::kDoIt;
  StandardPanel titled(args);
  Zo::Box<int> user = titled.getUserArea();
  EXPECT_LT(user.y1, 196);
  EXPECT_GT(user.y0, 4);
  EXPECT_EQ(titled.getTitleArea().y0, user.y1);
  EXPECT_EQ(titled.getMarginArea().y1, user.y0);
  XY<int> size = StandardPanel::calcPanelSize(XY<int>(user.width(), user.height()), args.standardWidgets, Border(4));
  EXPECT_EQ(size, XY<int>(300, 200));
}

TEST_F(GlobLayoutTest, MarginBuildersPlaceInTheFooter) {
  StandardPanel::InitArgs args(XY<int>(300, 200));
  args.setBorder(Border(4));
  args.standardWidgets = StandardPanel::kDoIt;
  StandardPanel panel(args);
  Glob* button = panel.addChild(block(40, 10), Glob::MarginBottomLeft(2, 1));
  EXPECT_EQ(button->getPosition(), XY<int>(6, 5));
  EXPECT_LT(button->getY() + button->height(), panel.getUserArea().y0 + 1);
}

TEST_F(GlobLayoutTest, DumpAndLoadRoundTripGeometryAndVisibility) {
  Glob* a = parent.addWidget(block(30, 10));
  a->setName("a");
  a->setPosition(XY<int>(7, 8));
  a->setVisible(false);
  configb saved;
  parent.dump(saved);
  a->setPosition(XY<int>(0, 0));
  a->setVisible(true);
  a->resize(1, 1);
  parent.load(saved);
  EXPECT_EQ(a->getPosition(), XY<int>(7, 8));
  EXPECT_EQ(a->getSize(), XY<int>(30, 10));
  EXPECT_FALSE(a->isVisible());
  ASSERT_NE(saved.findChild("a"), nullptr);
}

TEST_F(GlobLayoutTest, ChildrenOfANotPersistableWidgetAreNotSaved) {
  Glob* a = parent.addWidget(block(30, 10));
  a->setName("a");
  a->setPersistable(false);
  configb saved;
  parent.dump(saved);
  EXPECT_EQ(saved.findChild("a"), nullptr);
}

} // namespace

namespace {

// A plain block of colour, drawn over whatever is under it.
class Block : public Glob {
public:
  explicit Block(XY<int> size) : Glob(GlobCreationInfo(size)) {}
  void draw(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), Colour(0.9, 0.2, 0.1)));
  }
};

using GlobRedrawTest = HeadlessScreenTest;

// Damage paints at once while redraws are not held: a widget moved or made
// smaller must leave nothing of itself where it was.
TEST_F(GlobRedrawTest, AWidgetMovedOrShrunkLeavesNoTraceWhereItWas) {
  StandardPanel* panel = openPanel(XY<int>(300, 200), XY<int>(100, 100));
  pump();
  XY<int> const spot(12, 8);
  std::uint32_t const background = widgetPixel(*panel, spot);
  auto* block = static_cast<Block*>(panel->addWidget(new Block(XY<int>(90, 20))));
  block->setPosition(XY<int>(150, 60));
  EXPECT_EQ(widgetPixel(*panel, spot), background) << "drawn where it was first put";
  EXPECT_NE(widgetPixel(*panel, XY<int>(160, 70)), background);
  block->setPosition(XY<int>(5, 5));
  ASSERT_NE(widgetPixel(*panel, spot), background);
  block->resize(4, 4);
  EXPECT_EQ(widgetPixel(*panel, spot), background) << "drawn where it no longer reaches";
  EXPECT_EQ(widgetPixel(*panel, XY<int>(160, 70)), background);
}

} // namespace
