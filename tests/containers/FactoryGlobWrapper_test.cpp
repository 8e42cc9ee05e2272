#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/FactoryGlobWrapper.h>
#include <zowidgets/containers/FactoryGlobWrapperPanel.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <string>

namespace {

// A panel with menu rows of its own, made by class name.
class BinMenuPanel : public StandardPanel {
public:
  explicit BinMenuPanel(InitArgs const& args) : StandardPanel(args) {
    addMenuItem(UIString(L"New bin"), {});
    addMenuItem(UIString(L"Sort bins"), {});
    setMinSize(XY<int>(40, 30));
  }
  char const* idstring() const override { return "BinMenuPanel"; }
};

bool const binMenuPanelRegistered = [] {
  GlobManager::registerGlobType("BinMenuPanel", [](GlobCreationInfo const& info) -> Glob* {
    return new BinMenuPanel(StandardPanel::InitArgs(info));
  });
  return true;
}();

// A widget that draws nothing at all, so that it shows what lies under it.
class ClearWidget : public Glob {
public:
  using Glob::Glob;
  char const* idstring() const override { return "ClearWidget"; }

protected:
  void drawBackground(CanvasRenderer&) override {}
};

bool const clearWidgetRegistered = [] {
  GlobManager::registerGlobType("ClearWidget",
                                [](GlobCreationInfo const& info) -> Glob* { return new ClearWidget(info); });
  return true;
}();

struct FactoryGlobWrapperTest : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  FactoryGlobWrapper* openWrapper(char const* className, XY<int> size) {
    window = openPanel(XY<int>(size.x + 40, size.y + 40), XY<int>(300, 300));
    GlobCreationInfo widget(size);
    widget.className = className;
    auto* wrapper =
        window->createWidget<FactoryGlobWrapper>(FactoryGlobWrapper::InitArgs(widget), Glob::UserTopLeft(0, 0));
    pump();
    return wrapper;
  }

  FactoryGlobWrapperPanel* openPanelFor(char const* className, XY<int> userArea) {
    unsigned const standard = StandardPanel::kTitle | StandardPanel::kPoot;
    FactoryGlobWrapperPanel::InitArgs args(
        StandardPanel::calcPanelSize(userArea, standard, StandardPanel::getDefaultBorder()), className,
        UIString(L"Made by name"));
    args.standardWidgets = standard;
    args.screenPosition = XY<int>(300, 300);
    auto* panel = new FactoryGlobWrapperPanel(args);
    GlobManager::realize(panel);
    pump();
    return panel;
  }

  StandardPanel* window = nullptr;
};

TEST_F(FactoryGlobWrapperTest, TheWidgetIsMadeByNameAtTheWrappersSize) {
  FactoryGlobWrapper* wrapper = openWrapper("ColourSwatch", XY<int>(80, 30));
  Glob* swatch = wrapper->getWrapped();
  ASSERT_NE(swatch, nullptr);
  EXPECT_STREQ(swatch->idstring(), "ColourSwatch");
  EXPECT_EQ(swatch->parent(), wrapper);
  EXPECT_EQ(swatch->getSize(), XY<int>(80, 30));
  EXPECT_EQ(wrapper->getSize(), XY<int>(80, 30));
  EXPECT_EQ(swatch->getPosition(), XY<int>(0, 0));
  EXPECT_FALSE(swatch->isResizable());
  EXPECT_STREQ(wrapper->idstring(), "FactoryGlobWrapper:ColourSwatch");
}

TEST_F(FactoryGlobWrapperTest, AWidgetAskedForAtSizeZeroKeepsItsOwnSize) {
  FactoryGlobWrapper* wrapper = openWrapper("Button", XY<int>(0, 0));
  ASSERT_NE(wrapper->getWrapped(), nullptr);
  EXPECT_EQ(wrapper->getWrapped()->getSize(), XY<int>(Button::calcWidth(UIString()), Button::calcHeight()));
  EXPECT_EQ(wrapper->getSize(), wrapper->getWrapped()->getSize());
}

TEST_F(FactoryGlobWrapperTest, AWidgetThatIsNoMenuGlobGivesNoMenuRows) {
  FactoryGlobWrapper* wrapper = openWrapper("Button", XY<int>(80, 23));
  ASSERT_NE(wrapper->getWrapped(), nullptr);
  EXPECT_EQ(dynamic_cast<MenuGlob*>(wrapper->getWrapped()), nullptr);
  EXPECT_TRUE(wrapper->getMenuItems(nullptr).empty());
  HeadlessInput::clickOn(*wrapper, XY<int>(4, 4), kMouseRight);
  pump();
  EXPECT_EQ(wrapper->openMenu(), nullptr);
}

TEST_F(FactoryGlobWrapperTest, AMenuGlobsRowsAreTheWrappersAndItsMinimumSizeToo) {
  FactoryGlobWrapper* wrapper = openWrapper("BinMenuPanel", XY<int>(80, 40));
  std::vector<MenuItem> const rows = wrapper->getMenuItems(nullptr);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].text.getString(), LightweightString<wchar_t>(L"New bin"));
  EXPECT_EQ(wrapper->getMinSize(), XY<int>(40, 30));
  wrapper->getWrapped()->setMinSize(XY<int>(50, 35));
  EXPECT_EQ(wrapper->getMinSize(), XY<int>(50, 35)) << "the widget's minimum is followed";
}

TEST_F(FactoryGlobWrapperTest, AChildOnePixelNarrowerLeavesAOnePixelStripOnTheRight) {
  // The wrapper paints only around the widget, in its own (red) window
  // colour; under the widget the window's colour shows.
  FactoryGlobWrapper* wrapper = openWrapper("ClearWidget", XY<int>(60, 30));
  ASSERT_NE(wrapper->getWrapped(), nullptr);
  Palette red = wrapper->getPalette();
  red.setWindow(Colour(1.0, 0.0, 0.0));
  wrapper->setPalette(red);
  wrapper->getWrapped()->resize(59, 30);
  pump();
  EXPECT_EQ(wrapper->getWrapped()->getPosition(), XY<int>(0, 0)) << "floor((60 - 59) / 2) on the left";
  int const middle = 15;
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(59, middle))), (Rgb{255, 0, 0})) << "the strip";
  Rgb const under = rgbOf(window->getPalette().window());
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(0, middle))), under) << "no strip on the left";
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(58, middle))), under) << "never painted under the widget";
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(30, 0))), under) << "no strip below or above";
}

TEST_F(FactoryGlobWrapperTest, ASmallerChildIsCentredWithStripsAllRound) {
  FactoryGlobWrapper* wrapper = openWrapper("ColourSwatch", XY<int>(60, 30));
  auto* swatch = dynamic_cast<ColourSwatch*>(wrapper->getWrapped());
  ASSERT_NE(swatch, nullptr);
  swatch->setColour(ColourData(0.0, 0.0, 1.0));
  swatch->resize(41, 11);
  pump();
  EXPECT_EQ(swatch->getPosition(), XY<int>(9, 9));
  Rgb const window = rgbOf(wrapper->getPalette().window());
  for (XY<int> const& outside : {XY<int>(30, 2), XY<int>(30, 27), XY<int>(2, 15), XY<int>(57, 15)})
    EXPECT_EQ(rgbOf(widgetPixel(*wrapper, outside)), window) << outside.x << "," << outside.y;
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(30, 15))), (Rgb{0, 0, 255}));
}

TEST_F(FactoryGlobWrapperTest, ResizeAndVisibilityReachTheWidget) {
  FactoryGlobWrapper* wrapper = openWrapper("ColourSwatch", XY<int>(60, 30));
  wrapper->resize(70, 20);
  EXPECT_EQ(wrapper->getWrapped()->getSize(), XY<int>(70, 20));
  wrapper->setVisible(false);
  EXPECT_FALSE(wrapper->getWrapped()->isVisible());
  wrapper->setVisible(true);
  EXPECT_TRUE(wrapper->getWrapped()->isVisible());
}

TEST_F(FactoryGlobWrapperTest, AnUnknownClassLeavesTheWrapperEmpty) {
  FactoryGlobWrapper* wrapper = openWrapper("NoSuchWidget", XY<int>(60, 30));
  EXPECT_EQ(wrapper->getWrapped(), nullptr);
  EXPECT_STREQ(wrapper->idstring(), "");
  EXPECT_EQ(wrapper->getMinSize(), XY<int>(0, 0));
  EXPECT_TRUE(wrapper->getMenuItems(nullptr).empty());
  EXPECT_TRUE(wrapper->getChildren().empty());
  wrapper->resize(50, 20);
  wrapper->setVisible(false);
  wrapper->setVisible(true);
  pump();
  EXPECT_EQ(rgbOf(widgetPixel(*wrapper, XY<int>(25, 10))), rgbOf(wrapper->getPalette().window()))
      << "drawn as a plain panel";
}

TEST_F(FactoryGlobWrapperTest, ThePanelTitlesItselfAndItsWrapperFillsTheUserArea) {
  int const row = UifStd::getRowHeight();
  FactoryGlobWrapperPanel* panel = openPanelFor("Slider", XY<int>(10 * row, row));
  EXPECT_EQ(panel->getTitle().getString(), LightweightString<wchar_t>(L"Made by name"));
  FactoryGlobWrapper* wrapper = panel->getWrapper();
  ASSERT_NE(wrapper, nullptr);
  ASSERT_NE(dynamic_cast<Slider*>(wrapper->getWrapped()), nullptr);
  Zo::Box<int> const user = panel->getUserArea();
  EXPECT_EQ(wrapper->getPosition(), XY<int>(user.x0, user.y1 - wrapper->height()));
  EXPECT_EQ(wrapper->getSize(), user.getDimensions());
  EXPECT_EQ(wrapper->getWrapped()->getSize(), user.getDimensions());
  XY<int> const frame = panel->getSize() - user.getDimensions();
  EXPECT_EQ(panel->getMinSize() - frame, wrapper->getWrapped()->getMinSize())
      << "the slider's minimum inside the frame";

  panel->resize(panel->width() + 30, panel->height() + 10);
  EXPECT_EQ(wrapper->getSize(), panel->getUserArea().getDimensions());
  EXPECT_EQ(wrapper->getWrapped()->getSize(), panel->getUserArea().getDimensions());
}

TEST_F(FactoryGlobWrapperTest, AClickReachesTheWrappedWidget) {
  int const row = UifStd::getRowHeight();
  FactoryGlobWrapperPanel* panel = openPanelFor("Slider", XY<int>(10 * row, row));
  auto* slider = dynamic_cast<Slider*>(panel->getWrapper()->getWrapped());
  ASSERT_NE(slider, nullptr);
  double const before = slider->getWidgetValue();
  HeadlessInput::clickOn(*slider, XY<int>(slider->width() * 3 / 4, slider->height() / 2));
  pump();
  EXPECT_NE(slider->getWidgetValue(), before);
}

TEST_F(FactoryGlobWrapperTest, ThePanelsMinimumFitsAWidgetsMinimum) {
  FactoryGlobWrapperPanel* panel = openPanelFor("BinMenuPanel", XY<int>(100, 60));
  EXPECT_EQ(panel->getWrapper()->getMinSize(), XY<int>(40, 30));
  EXPECT_EQ(panel->getMinSize(),
            StandardPanel::calcPanelSize(XY<int>(40, 30), panel->getStandardWidgets(), panel->getBorder()));
}

TEST_F(FactoryGlobWrapperTest, GoldenPanelAroundASlider) {
  int const row = UifStd::getRowHeight();
  FactoryGlobWrapperPanel* panel = openPanelFor("Slider", XY<int>(10 * row, row));
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/factory_wrapper_panel_slider.png"));
}

TEST_F(FactoryGlobWrapperTest, GoldenPanelAroundASmallerSwatch) {
  int const row = UifStd::getRowHeight();
  FactoryGlobWrapperPanel* panel = openPanelFor("ColourSwatch", XY<int>(8 * row, 3 * row));
  auto* swatch = dynamic_cast<ColourSwatch*>(panel->getWrapper()->getWrapped());
  ASSERT_NE(swatch, nullptr);
  swatch->setColour(ColourData(0.1, 0.6, 0.65));
  swatch->resize(4 * row, 2 * row);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/factory_wrapper_panel_swatch.png"));
}

} // namespace
