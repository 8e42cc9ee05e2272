#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

// A window of 120 by 120 distinct colours: red from the column, green from
// the row counted from the top, so that every pixel says where it is; every
// eighth row and column is bluer, a grid that shows the enlargement.
class PatternWindow : public Glob {
public:
  static constexpr int kSide = 120;

  explicit PatternWindow(XY<int> at) : Glob(info(at)), image_(kSide, kSide) {
    for (int row = 0; row < kSide; ++row)
      for (int x = 0; x < kSide; ++x)
        image_.setPixel(x, row, colourOf(x, row));
  }
  static std::uint32_t colourOf(int x, int row) {
    std::uint32_t const blue = (x % 8 == 0 || row % 8 == 0) ? 0xc0u : 0x40u;
    return 0xff000000u | std::uint32_t(x * 2) << 16 | std::uint32_t(row * 2) << 8 | blue;
  }
  // The colour shown at a screen point on the window.
  std::uint32_t colourAt(XY<int> screen) const {
    XY<int> const local = screen - screenPosition();
    return colourOf(local.x, kSide - 1 - local.y);
  }

protected:
  void draw(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::ImageDescription(image_, XY<double>(0.0, 0.0)));
  }

private:
  static GlobCreationInfo info(XY<int> at) {
    GlobCreationInfo made(XY<int>(kSide, kSide));
    made.screenPosition = at;
    return made;
  }
  Zo::Image::Surface image_;
};

struct MagnifyToolTest : HeadlessScreenTest {
  PatternWindow* pattern = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    pattern = new PatternWindow(XY<int>(100, 100));
    GlobManager::realize(pattern);
  }

  static void usePreferences(int level, int width, int height) {
    prefs().setPreference(MagnifyTool::kLevelPreference, level);
    prefs().setPreference(MagnifyTool::kWidthPreference, width);
    prefs().setPreference(MagnifyTool::kHeightPreference, height);
  }

  XY<int> patternCentre() const { return pattern->screenPosition() + XY<int>(60, 60); }

  // A lens whose view is exactly `view`, away from the pattern.
  static MagnifyTool* openLens(XY<int> view, int level, XY<int> at = XY<int>(600, 300)) {
    int const gap = UifStd::getWidgetGap();
    MagnifyTool::InitArgs args(GlobCreationInfo(XY<int>(view.x + gap * 2, view.y + gap * 2)), MagnifyTool::kLens,
                               level);
    args.screenPosition = at;
    auto* tool = new MagnifyTool(args);
    GlobManager::realize(tool);
    return tool;
  }

  // The screen point that the view pixel (column, row from the top) shows.
  static XY<int> shownAt(MagnifyTool const& tool, XY<int> mouse, int column, int rowFromTop) {
    Zo::Box<int> const source = tool.sourceBoxAt(mouse);
    Zo::Box<int> const view = tool.getViewBox();
    int const level = tool.getLevel();
    int const offsetX = (source.width() * level - view.width()) / 2;
    int const offsetY = (source.height() * level - view.height()) / 2;
    return XY<int>(source.x0 + (column + offsetX) / level, source.y1 - 1 - (rowFromTop + offsetY) / level);
  }

  std::uint32_t viewPixel(MagnifyTool const& tool, int column, int rowFromTop) {
    Zo::Box<int> const view = tool.getViewBox();
    return widgetPixel(tool, XY<int>(view.x0 + column, view.y1 - 1 - rowFromTop));
  }

  // Every seventh view pixel, away from the centre marker, shows the pattern
  // pixel it stands for.
  void expectViewShowsPattern(MagnifyTool const& tool, XY<int> mouse) {
    Zo::Box<int> const view = tool.getViewBox();
    XY<int> const marker = tool.getMarkerPosition() - XY<int>(view.x0, view.y0);
    int const reach = tool.getLevel() + 4;
    int checked = 0;
    for (int row = 0; row < view.height(); row += 7)
      for (int column = 0; column < view.width(); column += 7) {
        int const up = view.height() - 1 - row;
        if (std::abs(column - marker.x) < reach && std::abs(up - marker.y) < reach)
          continue;
        ASSERT_EQ(rgbOf(viewPixel(tool, column, row)), rgbOf(pattern->colourAt(shownAt(tool, mouse, column, row))))
            << "view pixel " << column << ", " << row << " from the top";
        ++checked;
      }
    EXPECT_GT(checked, (view.width() / 7) * (view.height() / 7) / 2);
  }
};

// Every widget test starts with an empty scratch store.
TEST_F(MagnifyToolTest, PreferencesDefaultToLevel2AndA200By220Window) {
  for (char const* key : {MagnifyTool::kLevelPreference, MagnifyTool::kWidthPreference, MagnifyTool::kHeightPreference})
    ASSERT_FALSE(prefs().hasPreference(key)) << key << " was set before this test";
  EXPECT_EQ(MagnifyTool::getDefaultMagLevel(), 2);
  EXPECT_EQ(MagnifyTool::getDefaultMagWidth(), 200);
  EXPECT_EQ(MagnifyTool::getDefaultMagHeight(), 220);
  EXPECT_EQ(MagnifyTool::calcSize(), XY<int>(200, 220));
  EXPECT_EQ(openLens(XY<int>(100, 100), 0)->getLevel(), 2);
}

TEST_F(MagnifyToolTest, Level16OfA200WideViewGrabs13PixelsWide) {
  EXPECT_EQ(MagnifyTool::calcSourceSize(XY<int>(200, 220), 16), XY<int>(13, 15));
  MagnifyTool* tool = openLens(XY<int>(200, 220), 16);
  HeadlessInput::moveTo(patternCentre());
  tool->handleTimerEvent();
  XY<int> const mouse = patternCentre();
  EXPECT_EQ(tool->sourceBoxAt(mouse).width(), 13);
  // Thirteen pixels, 16 view pixels each, 4 cropped on either side.
  EXPECT_EQ(rgbOf(viewPixel(*tool, 0, 0)), rgbOf(pattern->colourAt(mouse + XY<int>(-6, 7))));
  EXPECT_EQ(rgbOf(viewPixel(*tool, 11, 0)), rgbOf(pattern->colourAt(mouse + XY<int>(-6, 7))));
  EXPECT_EQ(rgbOf(viewPixel(*tool, 12, 0)), rgbOf(pattern->colourAt(mouse + XY<int>(-5, 7))));
  EXPECT_EQ(rgbOf(viewPixel(*tool, 199, 0)), rgbOf(pattern->colourAt(mouse + XY<int>(6, 7))));
  expectViewShowsPattern(*tool, mouse);
}

TEST_F(MagnifyToolTest, Level2OfA200WideViewGrabs101AndCropsOnePixelEachSide) {
  EXPECT_EQ(MagnifyTool::calcSourceSize(XY<int>(200, 220), 2), XY<int>(101, 111));
  MagnifyTool* tool = openLens(XY<int>(200, 220), 2);
  HeadlessInput::moveTo(patternCentre());
  tool->handleTimerEvent();
  XY<int> const mouse = patternCentre();
  EXPECT_EQ(tool->sourceBoxAt(mouse), Zo::Box<int>(mouse.x - 50, mouse.y - 55, mouse.x + 51, mouse.y + 56));
  // The leftmost pixel keeps one of its two view columns, the next keeps both.
  EXPECT_EQ(rgbOf(viewPixel(*tool, 0, 20)), rgbOf(pattern->colourAt(shownAt(*tool, mouse, 0, 20))));
  EXPECT_EQ(shownAt(*tool, mouse, 0, 20).x, mouse.x - 50);
  EXPECT_EQ(rgbOf(viewPixel(*tool, 1, 20)),
            rgbOf(pattern->colourAt(XY<int>(mouse.x - 49, shownAt(*tool, mouse, 1, 20).y))));
  EXPECT_EQ(rgbOf(viewPixel(*tool, 2, 20)), rgbOf(viewPixel(*tool, 1, 20)));
  EXPECT_EQ(rgbOf(viewPixel(*tool, 199, 20)),
            rgbOf(pattern->colourAt(XY<int>(mouse.x + 50, shownAt(*tool, mouse, 199, 20).y))));
  expectViewShowsPattern(*tool, mouse);
}

TEST_F(MagnifyToolTest, Level1ShowsTheScreenPixelForPixel) {
  EXPECT_EQ(MagnifyTool::calcSourceSize(XY<int>(100, 110), 1), XY<int>(101, 111));
  MagnifyTool* tool = openLens(XY<int>(100, 110), 1);
  XY<int> const mouse = patternCentre();
  HeadlessInput::moveTo(mouse);
  tool->handleTimerEvent();
  expectViewShowsPattern(*tool, mouse);
  EXPECT_EQ(shownAt(*tool, mouse, 0, 0), mouse + XY<int>(-50, 55));

  // At the screen's corner only the part on the screen is copied, in place.
  auto* corner = new PatternWindow(XY<int>(0, 0));
  GlobManager::realize(corner);
  HeadlessInput::moveTo(XY<int>(3, 4));
  tool->handleTimerEvent();
  XY<int> const marker = tool->getMarkerPosition();
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker + XY<int>(7, 9))), rgbOf(corner->colourAt(XY<int>(10, 13))));
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker - XY<int>(3, 0) + XY<int>(0, 9))), rgbOf(corner->colourAt(XY<int>(0, 13))));
  Rgb const recessed = rgbOf(tool->getPalette().childWindow(-2));
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker - XY<int>(4, 0) + XY<int>(0, 9))), recessed);
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker - XY<int>(0, 5) + XY<int>(9, 0))), recessed);
}

TEST_F(MagnifyToolTest, ThePointersPixelIsInTheMarkedCentre) {
  MagnifyTool* tool = openLens(XY<int>(200, 220), 4);
  XY<int> const mouse = patternCentre() + XY<int>(3, -2);
  HeadlessInput::moveTo(mouse);
  tool->handleTimerEvent();
  XY<int> const marker = tool->getMarkerPosition();
  for (XY<int> inside : {XY<int>(0, 0), XY<int>(3, 3), XY<int>(1, 2)})
    EXPECT_EQ(rgbOf(widgetPixel(*tool, marker + inside)), rgbOf(pattern->colourAt(mouse)));
  // The ring round it: light next to the pixel, dark outside that.
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tool, marker - XY<int>(1, 1))), Rgb{242, 242, 242}, 2));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tool, marker - XY<int>(2, 2))), Rgb{13, 13, 13}, 2));
}

TEST_F(MagnifyToolTest, ALevelOf0InInitArgsMeansThePreferencesLevel) {
  prefs().setPreference(MagnifyTool::kLevelPreference, 5);
  MagnifyTool* tool = openLens(XY<int>(100, 100), 0);
  EXPECT_EQ(tool->getLevel(), 5);
  MagnifyTool* given = openLens(XY<int>(100, 100), 3, XY<int>(900, 300));
  EXPECT_EQ(given->getLevel(), 3);
}

TEST_F(MagnifyToolTest, MovingThePointerToTheEdgeOfTheScreenGrabsWhatTheScreenAllows) {
  auto* corner = new PatternWindow(XY<int>(0, 0));
  GlobManager::realize(corner);
  MagnifyTool* tool = openLens(XY<int>(200, 220), 2);
  HeadlessInput::moveTo(XY<int>(0, 0));
  tool->handleTimerEvent();
  EXPECT_EQ(MagnifyTool::getScreenRect(tool->sourceBoxAt(XY<int>(0, 0))), Zo::Box<int>(0, 0, 51, 56));
  XY<int> const marker = tool->getMarkerPosition();
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker)), rgbOf(corner->colourAt(XY<int>(0, 0))));
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker + XY<int>(20, 20))), rgbOf(corner->colourAt(XY<int>(10, 10))));
  // Beyond the screen's edge the view shows its own recessed colour, and the
  // screen's pixels stay where they belong.
  Rgb const recessed = rgbOf(tool->getPalette().childWindow(-2));
  Zo::Box<int> const view = tool->getViewBox();
  EXPECT_EQ(rgbOf(widgetPixel(*tool, XY<int>(view.x0, view.y0))), recessed);
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker - XY<int>(5, 0))), recessed);
  EXPECT_EQ(rgbOf(widgetPixel(*tool, marker - XY<int>(0, 5))), recessed);

  XY<int> const screen = screenBackend().screenSize();
  HeadlessInput::moveTo(XY<int>(screen.x - 1, screen.y - 1));
  tool->handleTimerEvent();
  EXPECT_EQ(MagnifyTool::getScreenRect(tool->sourceBoxAt(XY<int>(screen.x - 1, screen.y - 1))),
            Zo::Box<int>(screen.x - 51, screen.y - 56, screen.x, screen.y));
  EXPECT_EQ(rgbOf(widgetPixel(*tool, tool->getMarkerPosition() + XY<int>(5, 5))), recessed);
}

TEST_F(MagnifyToolTest, OffTheScreenEntirelyTheViewIsLeftAsItWas) {
  MagnifyTool* tool = openLens(XY<int>(100, 100), 2);
  HeadlessInput::moveTo(patternCentre());
  tool->handleTimerEvent();
  int const grabs = tool->grabCount();
  XY<int> const inView(tool->getViewBox().x0 + 10, tool->getViewBox().y0 + 10);
  Rgb const before = rgbOf(widgetPixel(*tool, inView));
  EXPECT_EQ(before, rgbOf(pattern->colourAt(shownAt(*tool, patternCentre(), 10, tool->getViewBox().height() - 11))));
  HeadlessInput::moveTo(XY<int>(-500, -500));
  tool->handleTimerEvent();
  EXPECT_EQ(tool->grabCount(), grabs);
  EXPECT_EQ(rgbOf(widgetPixel(*tool, inView)), before);
}

TEST_F(MagnifyToolTest, TimerTicksRedrawWhileVisibleOnly) {
  TestClock clock(1000.0);
  MagnifyTool* tool = openLens(XY<int>(100, 100), 2);
  HeadlessInput::moveTo(patternCentre());
  pump();
  int const first = tool->grabCount();
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_EQ(tool->grabCount(), first + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*tool, tool->getMarkerPosition())), rgbOf(pattern->colourAt(patternCentre())));

  // The view follows the pointer at the next tick.
  HeadlessInput::moveTo(patternCentre() + XY<int>(7, 0));
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_EQ(rgbOf(widgetPixel(*tool, tool->getMarkerPosition())),
            rgbOf(pattern->colourAt(patternCentre() + XY<int>(7, 0))));

  tool->setVisible(false);
  EXPECT_FALSE(TimerTicks::hasInterest(tool));
  int const hidden = tool->grabCount();
  clock.advance(TimerTicks::kIntervalMs * 3);
  pump();
  EXPECT_EQ(tool->grabCount(), hidden);
  tool->setVisible(true);
  EXPECT_TRUE(TimerTicks::hasInterest(tool));
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_GT(tool->grabCount(), hidden);
}

TEST_F(MagnifyToolTest, PreferencesAreReadAndClamped) {
  prefs().setPreference(MagnifyTool::kLevelPreference, 40);
  prefs().setPreference(MagnifyTool::kWidthPreference, 320);
  prefs().setPreference(MagnifyTool::kHeightPreference, 260);
  EXPECT_EQ(MagnifyTool::getDefaultMagLevel(), MagnifyTool::kMaxLevel);
  EXPECT_EQ(MagnifyTool::calcSize(), XY<int>(320, 260));
  prefs().setPreference(MagnifyTool::kLevelPreference, -3);
  EXPECT_EQ(MagnifyTool::getDefaultMagLevel(), MagnifyTool::kMinLevel);
  // Too small a window still leaves room for the view.
  prefs().setPreference(MagnifyTool::kWidthPreference, 20);
  EXPECT_GE(MagnifyTool::calcSize().x, UifStd::getRowHeight() * 6);
}

TEST_F(MagnifyToolTest, TheSliderSetsTheLevelTitleAndPreference) {
  usePreferences(2, 200, 220);
  MagnifyTool::InitArgs args(GlobCreationInfo(MagnifyTool::calcSize()), MagnifyTool::kFreeStanding, 0);
  args.screenPosition = XY<int>(600, 300);
  auto* tool = new MagnifyTool(args);
  GlobManager::realize(tool);
  ASSERT_NE(tool->getSlider(), nullptr);
  EXPECT_EQ(tool->getTitle().getString(), LightweightString<wchar_t>(L"Magnifier (2:1)"));
  EXPECT_EQ(tool->getSlider()->getPosition(), 2.0);

  Slider& slider = *tool->getSlider();
  HeadlessInput::clickOn(slider, XY<int>(slider.valueToX(5.0), slider.height() / 2));
  EXPECT_EQ(tool->getLevel(), 5);
  EXPECT_EQ(tool->getTitle().getString(), LightweightString<wchar_t>(L"Magnifier (5:1)"));
  EXPECT_EQ(prefs().getPreference(MagnifyTool::kLevelPreference, 0), 5);
  // The view is above the slider and as wide as the user area.
  EXPECT_EQ(tool->getViewBox().width(), tool->getUserArea().width());
  EXPECT_GT(tool->getViewBox().y0, slider.getY() + slider.height() - 1);
}

TEST_F(MagnifyToolTest, ShowMagnifierOpensAFreeStandingToolAtTheMouseEachTime) {
  std::optional<Cmd::Command> const command = CommandMap::findCommand(MagnifyTool::kShowCommand);
  ASSERT_TRUE(command.has_value());
  EXPECT_EQ(command->mapItem.keyCode, 33554509);
  EXPECT_EQ(command->label.resId(), 13638);
  EXPECT_EQ(command->description.resId(), 13639);
  EXPECT_EQ(command->shortLabel.resId(), 11233);
  EXPECT_EQ(command->scope, kCmdScopeApplication);

  prefs().setPreference(MagnifyTool::kLevelPreference, 3);
  HeadlessInput::moveTo(XY<int>(700, 200));
  ASSERT_TRUE(CommandMap::callCommand(MagnifyTool::kShowCommand));
  ASSERT_TRUE(CommandMap::callCommand(MagnifyTool::kShowCommand));
  std::vector<MagnifyTool*> tools;
  for (Glob* window : GlobManager::topLevelWindows())
    if (is_good_glob_ptr(window, "MagnifyTool"))
      tools.push_back(static_cast<MagnifyTool*>(window));
  ASSERT_EQ(tools.size(), 2u);
  for (MagnifyTool* tool : tools) {
    EXPECT_EQ(tool->screenPosition(), XY<int>(700, 200));
    EXPECT_EQ(tool->getSize(), MagnifyTool::calcSize());
    EXPECT_EQ(tool->getStyle(), MagnifyTool::kFreeStanding);
    EXPECT_EQ(tool->getLevel(), 3);
    EXPECT_TRUE(tool->getStandardWidgets() & StandardPanel::kPoot);
  }
}

TEST_F(MagnifyToolTest, TheLensWindowIsCutToItsCurvedFrame) {
  MagnifyTool* lens = openLens(XY<int>(80, 80), 2);
  Zo::Box<int> const box = lens->canvas()->screenBox();
  int const radius = lens->getWindowCornerRadius();
  EXPECT_EQ(radius, UifStd::getWidgetGap() * 2);
  Rgb const desktop = rgbOf(Colour(0.2, 0.22, 0.25));
  // Outside the curve, each corner shows the desktop behind the lens.
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(box.x0, box.y0))), desktop);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(box.x1 - 1, box.y0))), desktop);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(box.x0, box.y1 - 1))), desktop);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(box.x1 - 1, box.y1 - 1))), desktop);
  // Within the curve the lens shows itself, as its own picture has it.
  Zo::Image::Surface const own = HeadlessScreen::windowShot(*lens);
  XY<int> const inside(box.x0 + radius, box.y0 + 1);
  EXPECT_EQ(rgbOf(screenPixel(inside)), rgbOf(own.pixel(radius, own.height() - 2)));
  XY<int> const middleOfEdge(box.x0, (box.y0 + box.y1) / 2);
  EXPECT_EQ(rgbOf(screenPixel(middleOfEdge)), rgbOf(own.pixel(0, own.height() / 2)));
}

TEST_F(MagnifyToolTest, OverAWindowTheLensCornersShowThatWindow) {
  MagnifyTool* lens = openLens(XY<int>(60, 60), 2, pattern->screenPosition() + XY<int>(20, 20));
  XY<int> const corner = lens->screenPosition();
  EXPECT_EQ(rgbOf(screenPixel(corner)), rgbOf(pattern->colourAt(corner)));
}

TEST_F(MagnifyToolTest, TheFreeStandingToolKeepsSquareCorners) {
  auto* tool =
      new MagnifyTool(MagnifyTool::InitArgs(GlobCreationInfo(XY<int>(200, 220)), MagnifyTool::kFreeStanding, 2));
  EXPECT_EQ(tool->getWindowCornerRadius(), 0);
  delete tool;
}

TEST_F(MagnifyToolTest, TheToolIsMadeByItsClassName) {
  GlobCreationInfo info(XY<int>(200, 220));
  info.className = "MagnifyTool";
  Glob* made = GlobManager::createGlob(info);
  ASSERT_TRUE(is_good_glob_ptr(made, "MagnifyTool"));
  EXPECT_EQ(static_cast<MagnifyTool*>(made)->getStyle(), MagnifyTool::kFreeStanding);
  delete made;
}

TEST_F(MagnifyToolTest, TheHighlightIsOutlinedWhereItLiesOnTheScreen) {
  MagnifyTool* tool = openLens(XY<int>(200, 220), 4);
  XY<int> const mouse = patternCentre();
  HeadlessInput::moveTo(mouse);
  // Ten pixels to the right of the pointer, 5 by 5.
  tool->setHighlight(Zo::Box<double>(mouse.x + 10, mouse.y, mouse.x + 15, mouse.y + 5));
  tool->handleTimerEvent();
  XY<int> const corner = tool->getMarkerPosition() + XY<int>(40, 0);
  Rgb const red = rgbOf(Colour(0.9, 0.0, 0.0));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tool, corner + XY<int>(10, 0))), red, 2));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tool, corner + XY<int>(0, 10))), red, 2));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tool, corner + XY<int>(19, 10))), red, 2));
  // Inside the outline the screen still shows.
  EXPECT_EQ(rgbOf(widgetPixel(*tool, corner + XY<int>(10, 10))), rgbOf(pattern->colourAt(mouse + XY<int>(12, 2))));
  tool->setHighlight(Zo::Box<double>());
  EXPECT_EQ(rgbOf(widgetPixel(*tool, corner + XY<int>(10, 0))), rgbOf(pattern->colourAt(mouse + XY<int>(12, 0))));
}

class MagnifyToolGolden : public MagnifyToolTest, public ::testing::WithParamInterface<double> {
protected:
  void TearDown() override {
    MagnifyToolTest::TearDown();
    UifStd::setScale(1.0);
  }
};

TEST_P(MagnifyToolGolden, FreeStandingWindowOverThePattern) {
  usePreferences(2, 200, 220);
  UifStd::setScale(GetParam());
  HeadlessInput::moveTo(patternCentre() + XY<int>(-20, 10));
  MagnifyTool::InitArgs args(GlobCreationInfo(MagnifyTool::calcSize()), MagnifyTool::kFreeStanding, 4);
  args.screenPosition = XY<int>(600, 300);
  auto* tool = new MagnifyTool(args);
  GlobManager::realize(tool);
  tool->handleTimerEvent();
  std::string const name = GetParam() == 1.0 ? "magnify_scale1.png" : "magnify_scale2.png";
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*tool), ZO_GOLDEN_DIR "/" + name));
}

TEST_P(MagnifyToolGolden, LensWithAHighlight) {
  UifStd::setScale(GetParam());
  XY<int> const mouse = patternCentre() + XY<int>(10, -10);
  HeadlessInput::moveTo(mouse);
  int const side = UifStd::getRowHeight() * 6 - UifStd::getWidgetGap() * 2;
  MagnifyTool::InitArgs args(GlobCreationInfo(XY<int>(side, side)), MagnifyTool::kLens, 8);
  args.screenPosition = XY<int>(600, 300);
  auto* tool = new MagnifyTool(args);
  GlobManager::realize(tool);
  tool->setHighlight(Zo::Box<double>(mouse.x - 3, mouse.y - 2, mouse.x + 1, mouse.y + 1));
  tool->handleTimerEvent();
  std::string const name = GetParam() == 1.0 ? "magnify_lens_scale1.png" : "magnify_lens_scale2.png";
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*tool), ZO_GOLDEN_DIR "/" + name));
}

INSTANTIATE_TEST_SUITE_P(Scales, MagnifyToolGolden, ::testing::Values(1.0, 2.0));

} // namespace
