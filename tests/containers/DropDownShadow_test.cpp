#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/DropDownButtonEx.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <vector>

namespace {

// A bare panel of a given size and frame.
class FramedPanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() : InitArgs(XY<int>(200, 120), Border::kDropMenuBorder) {}
    InitArgs(XY<int> size, int borderStyle) : StandardPanel::InitArgs(size) {
      setBorder(Border::forStyle(borderStyle));
    }
  };
  explicit FramedPanel(InitArgs const& args) : StandardPanel(args) {}
  char const* idstring() const override { return "FramedPanel"; }
};

using FramedButton = DropDownButtonEx<FramedPanel>;

struct DropDownShadowTest : HeadlessScreenTest {
  Glob* open(FramedPanel::InitArgs const& panelArgs, XY<int> windowAt = XY<int>(300, 600)) {
    StandardPanel::InitArgs windowArgs(XY<int>(260, 90));
    windowArgs.screenPosition = windowAt;
    auto* window = new StandardPanel(windowArgs);
    GlobManager::realize(window);
    auto* button = window->createWidget<FramedButton>(
        FramedButton::InitArgs(UIString(L"Open"), XY<int>(), panelArgs, FramedButton::kAttached),
        Glob::UserTopLeft(0, 0));
    HeadlessInput::clickOn(*button);
    pump();
    return button->getDropDownWindow();
  }
  int brightness(XY<int> point) {
    Rgb const rgb = rgbOf(screenPixel(point));
    return rgb.r + rgb.g + rgb.b;
  }
  // Which of these points the panel's surround darkens: each is read with
  // the surround and again without it.
  std::vector<bool> darkened(Glob& panel, std::vector<XY<int>> const& points) {
    std::vector<int> with;
    for (XY<int> point : points)
      with.push_back(brightness(point));
    Glob::Surround const kept = panel.getWindowSurround();
    panel.removeSurround();
    std::vector<bool> result;
    for (std::size_t i = 0; i < points.size(); ++i)
      result.push_back(with[i] < brightness(points[i]));
    panel.addSurround(kept.width, kept.colour, kept.strength, kept.edges);
    return result;
  }
};

TEST_F(DropDownShadowTest, ADropMenuPanelBelowItsButtonCastsAShadowExceptWhereItMeetsTheButton) {
  Glob* panel = open(FramedPanel::InitArgs());
  ASSERT_NE(panel, nullptr);
  Glob::Surround const& shadow = panel->getWindowSurround();
  EXPECT_EQ(shadow.width, 2 * UifStd::getWidgetGap());
  EXPECT_EQ(rgbOf(shadow.colour), rgbOf(Colour(0, 0, 0)));
  EXPECT_FLOAT_EQ(shadow.strength, 0.35f);
  EXPECT_EQ(shadow.edges, 13u);
  Zo::Box<int> const box = panel->canvas()->screenBox();
  int const midX = (box.x0 + box.x1) / 2;
  int const midY = (box.y0 + box.y1) / 2;
  std::vector<bool> const expected{true, true, true, false}; // left, right, bottom; not the top
  EXPECT_EQ(darkened(*panel, {XY<int>(box.x0 - 1, midY), XY<int>(box.x1, midY), XY<int>(midX, box.y0 - 1),
                              XY<int>(midX + 60, box.y1)}),
            expected);
}

TEST_F(DropDownShadowTest, APanelWithNoRoomAboveOrBelowCastsAShadowAllRound) {
  int const screenHeight = screen().screenSize().y;
  Glob* panel = open(FramedPanel::InitArgs(XY<int>(200, screenHeight - 80), Border::kDropMenuBorder));
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->screenPosition().y, 0);
  EXPECT_EQ(panel->getWindowSurround().edges, 15u);
  Zo::Box<int> const box = panel->canvas()->screenBox();
  std::vector<bool> const expected{true, true};
  EXPECT_EQ(darkened(*panel, {XY<int>(box.x0 - 1, box.y1 - 10), XY<int>(box.x0 + 10, box.y1)}), expected)
      << "the top edge too";
}

TEST_F(DropDownShadowTest, APanelOfAnotherFrameCastsNone) {
  Glob* panel = open(FramedPanel::InitArgs(XY<int>(200, 120), Border::kSquarePanelBorder));
  ASSERT_NE(panel, nullptr);
  EXPECT_TRUE(panel->getWindowSurround().empty());
}

} // namespace
