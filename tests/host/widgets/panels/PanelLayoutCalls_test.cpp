#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <vector>

namespace {

// A panel that records its main action and the messages it is sent.
class ActionPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  void handleDoIt() override { calls.push_back("handleDoIt"); }
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    calls.push_back(message.str() + (sender == this ? " from itself" : ""));
    return 1;
  }
  std::vector<std::string> calls;
};

using PanelLayoutCallsTest = HeadlessScreenTest;

// A realized panel with the footer's main action, recording its calls.
ActionPanel* openActionPanel() {
  StandardPanel::InitArgs args(XY<int>(300, 200));
  args.screenPosition = XY<int>(100, 100);
  args.standardWidgets = StandardPanel::kDoIt;
  auto* panel = new ActionPanel(args);
  GlobManager::realize(panel);
  return panel;
}

TEST_F(PanelLayoutCallsTest, TheUserAreaBordersAreTheDistancesToEachEdge) {
  StandardPanel* panel = openPanel(XY<int>(300, 200), XY<int>(100, 100), StandardPanel::kTitle | StandardPanel::kDoIt,
                                   UIString(L"Effect"));
  Zo::Box<int> const user = panel->getUserArea();
  WidgetSurround const borders = panel->getUserAreaBorders();
  EXPECT_EQ(borders.left, user.x0);
  EXPECT_EQ(borders.right, 300 - user.x1);
  EXPECT_EQ(borders.top, 200 - user.y1);
  EXPECT_EQ(borders.bottom, user.y0);
  // The title bar lies above the user area, the footer below it.
  EXPECT_GT(borders.top, borders.left);
  EXPECT_GT(borders.bottom, borders.left);
  // They are what calcPanelSize adds to a user area.
  XY<int> const outer = StandardPanel::calcPanelSize(XY<int>(user.width(), user.height()), panel->getStandardWidgets(),
                                                     panel->getBorder());
  EXPECT_EQ(outer, XY<int>(300, 200));
}

TEST_F(PanelLayoutCallsTest, AnOriginNamesAPointOfTheUserArea) {
  StandardPanel* panel = openPanel(XY<int>(300, 200), XY<int>(100, 100), StandardPanel::kTitle, UIString(L"Effect"));
  Zo::Box<int> const u = panel->getUserArea();
  EXPECT_EQ(panel->getOriginXY(kOriginBottomLeft), XY<int>(u.x0, u.y0));
  EXPECT_EQ(panel->getOriginXY(kOriginTopLeft), XY<int>(u.x0, u.y1));
  EXPECT_EQ(panel->getOriginXY(kOriginBottomRight), XY<int>(u.x1, u.y0));
  EXPECT_EQ(panel->getOriginXY(kOriginTopRight), XY<int>(u.x1, u.y1));
  XY<int> const centre(u.x0 + u.width() / 2, u.y0 + u.height() / 2);
  EXPECT_EQ(panel->getOriginXY(kOriginCentre), centre);
  EXPECT_EQ(panel->getOriginXY(kOriginPanelDefault), centre);
  EXPECT_EQ(panel->getOriginXY(kOriginLeft), XY<int>(u.x0, centre.y));
  EXPECT_EQ(panel->getOriginXY(kOriginRight), XY<int>(u.x1, centre.y));
  EXPECT_EQ(panel->getOriginXY(kOriginTop), XY<int>(centre.x, u.y1));
  EXPECT_EQ(panel->getOriginXY(kOriginBottom), XY<int>(centre.x, u.y0));
}

TEST_F(PanelLayoutCallsTest, ResizeChildrenStretchesTheChildrenThatSpannedTheUserArea) {
  StandardPanel* panel = openPanel(XY<int>(300, 200));
  Zo::Box<int> const user = panel->getUserArea();
  auto* row = panel->createWidget<Glob>(GlobCreationInfo(XY<int>(user.width(), 20)), Glob::UserTopLeft(0, 0));
  auto* column = panel->createWidget<Glob>(GlobCreationInfo(XY<int>(30, user.height())), Glob::UserTopRight(0, 0));
  auto* small = panel->createWidget<Glob>(GlobCreationInfo(XY<int>(40, 40)), Glob::UserBottomLeft(0, 0));
  panel->resize(400, 260);
  panel->resizeChildren(StandardPanel::kResizeWidth);
  Zo::Box<int> const now = panel->getUserArea();
  EXPECT_EQ(row->getSize(), XY<int>(now.width(), 20));
  EXPECT_EQ(column->getSize(), XY<int>(30, user.height())) << "heights were not asked for";
  EXPECT_EQ(small->getSize(), XY<int>(40, 40));
  panel->resize(300, 200);
  panel->resizeChildren(StandardPanel::kResizeBoth);
  EXPECT_EQ(row->getSize(), XY<int>(user.width(), 20));
  EXPECT_EQ(small->getSize(), XY<int>(40, 40));
  EXPECT_EQ(row->getPosition(), XY<int>(user.x0, user.y1 - 20)) << "placed again at the top left";
}

TEST_F(PanelLayoutCallsTest, TheFooterPaletteIsTheFootersColour) {
  StandardPanel* panel = openPanel(XY<int>(300, 200), XY<int>(100, 100), StandardPanel::kDoIt);
  Palette const footer = panel->makeFooterPalette();
  EXPECT_EQ(rgbOf(footer.window()), rgbOf(panel->getPalette().window(-1)));
  // What a footer widget draws on is what the footer shows.
  Zo::Box<int> const margin = panel->getMarginArea();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*panel, XY<int>(margin.x0 + 1, margin.y0 + 1))), rgbOf(footer.window()), 2));
}

TEST_F(PanelLayoutCallsTest, DoItMsgCarriesOutTheMainActionAsTheFooterButtonDoes) {
  ActionPanel* panel = openActionPanel();
  panel->doItMsg();
  std::vector<std::string> const expected{"handleDoIt", std::string(StandardPanel::kDoItMsg) + " from itself"};
  EXPECT_EQ(panel->calls, expected);
  panel->calls.clear();
  Zo::Box<int> const button = panel->getStandardWidgetBox(StandardPanel::kDoIt);
  HeadlessInput::clickOn(*panel, XY<int>((button.x0 + button.x1) / 2, (button.y0 + button.y1) / 2));
  EXPECT_EQ(panel->calls, expected);
}

TEST_F(PanelLayoutCallsTest, ReturnThatNoWidgetUsesCarriesOutTheFootersAction) {
  ActionPanel* panel = openActionPanel();
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::key(kKeyReturn, kKeyCtrl);
  std::vector<std::string> const twice{"handleDoIt", std::string(StandardPanel::kDoItMsg) + " from itself",
                                       "handleDoIt", std::string(StandardPanel::kDoItMsg) + " from itself"};
  EXPECT_EQ(panel->calls, twice);
  panel->calls.clear();
  HeadlessInput::key(kKeyReturn, kKeyAlt);
  HeadlessInput::key(' ');
  EXPECT_TRUE(panel->calls.empty()) << "only Return, and Ctrl+Return";
  // Without the footer, Return does nothing of the sort.
  panel->removeStandardWidgets(StandardPanel::kDoIt);
  HeadlessInput::key(kKeyReturn);
  EXPECT_TRUE(panel->calls.empty());
}

TEST_F(PanelLayoutCallsTest, APanelThatIsNotMovableStaysWhenItsTitleBarIsDragged) {
  StandardPanel* panel = openPanel(XY<int>(300, 200), XY<int>(100, 100), StandardPanel::kTitle, UIString(L"Effect"));
  EXPECT_TRUE(panel->isMovable()) << "a panel is movable by default";
  Zo::Box<int> const bar = panel->getTitleArea();
  XY<int> const grip = panel->screenPosition() + XY<int>(bar.x0 + 20, (bar.y0 + bar.y1) / 2);
  panel->setMovable(false);
  HeadlessInput::drag(grip, grip + XY<int>(50, -30));
  EXPECT_EQ(panel->screenPosition(), XY<int>(100, 100));
  panel->setMovable(true);
  HeadlessInput::drag(grip, grip + XY<int>(50, -30));
  EXPECT_EQ(panel->screenPosition(), XY<int>(150, 70));
}

TEST_F(PanelLayoutCallsTest, APlainWidgetIsNotMovable) {
  Glob plain(GlobCreationInfo(XY<int>(10, 10)));
  EXPECT_FALSE(plain.isMovable());
  plain.setMovable(true);
  EXPECT_TRUE(plain.isMovable());
}

} // namespace
