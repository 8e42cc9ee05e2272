#pragma once

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

// A fresh headless screen for each test, with every window it opened closed
// and the message loop drained afterwards. Each test starts from the shared
// state of a fresh process (resetSharedState).
class HeadlessScreenTest : public ::testing::Test {
protected:
  HeadlessScreenTest();
  void SetUp() override;
  void TearDown() override;

  HeadlessScreen& screen() { return *screen_; }
  // A screen of another size in place of the default one, from SetUp.
  void useScreenOfSize(XY<int> size);
  // Runs queued work (deferred deletions, messages) until none is left.
  static void pump();
  // A top-level panel of this size at this screen position, realized.
  static StandardPanel* openPanel(XY<int> size, XY<int> at = XY<int>(100, 100), unsigned standardWidgets = 0,
                                  UIString const& title = {});
  // The screen's pixel at a point (bottom-up), as 0xAARRGGBB.
  std::uint32_t screenPixel(XY<int> point);
  // The pixel of a widget at a point in its own coordinates.
  std::uint32_t widgetPixel(Glob const& widget, XY<int> local);
  // How many solid pixels of the named icon, drawn `side` pixels square in
  // `colour` (IconCache), the widget shows in that colour with the icon's
  // bottom-left corner at `corner` in its own coordinates; and how many
  // solid pixels the icon has.
  std::pair<int, int> iconPixelsShown(Glob const& widget, std::string_view name, int side, XY<int> corner,
                                      Colour const& colour);

private:
  HeadlessScreen* screen_ = nullptr;
};

// Compares a picture with a golden PNG under tests/<dir>/golden/. With the
// environment variable ZOWIDGETS_UPDATE_GOLDEN set, writes the golden
// instead. On a mismatch the actual picture is written beside the build for
// inspection, and the failure says where.
::testing::AssertionResult matchesGolden(Zo::Image::Surface const& actual, std::string const& goldenPath,
                                         int channelTolerance = 2, double pixelFraction = 0.002);

// The channels of a pixel, for readable expectations.
struct Rgb {
  int r, g, b;
  friend bool operator==(Rgb const&, Rgb const&) = default;
};
Rgb rgbOf(std::uint32_t argb);
Rgb rgbOf(Colour const& colour);
bool near(Rgb a, Rgb b, int tolerance = 1);
std::ostream& operator<<(std::ostream& out, Rgb const& rgb);
