#include "WidgetTestSupport.h"
#include "SharedState.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <ostream>

HeadlessScreenTest::HeadlessScreenTest() {
  // Before any fixture's SetUp, which may set a scale of its own.
  resetSharedState();
}

void HeadlessScreenTest::SetUp() {
  pump();
  screen_ = &useHeadlessScreen();
}

void HeadlessScreenTest::useScreenOfSize(XY<int> size) { screen_ = &useHeadlessScreen(size); }

void HeadlessScreenTest::TearDown() {
  // A pointer left resting on a widget with a tooltip leaves the tooltip's
  // timer running, due on this test's clock: the next test must not meet it.
  Tooltips::dismiss();
  for (Glob* window : GlobManager::topLevelWindows())
    GlobManager::requestDeletion(window);
  pump();
  set_kbd_focus(nullptr);
}

void HeadlessScreenTest::pump() {
  while (MessageLoop::runPending() != 0) {
  }
}

StandardPanel* HeadlessScreenTest::openPanel(XY<int> size, XY<int> at, unsigned standardWidgets,
                                             UIString const& title) {
  StandardPanel::InitArgs args(size);
  args.screenPosition = at;
  args.standardWidgets = standardWidgets;
  args.title = title;
  auto* panel = new StandardPanel(args);
  GlobManager::realize(panel);
  return panel;
}

std::uint32_t HeadlessScreenTest::screenPixel(XY<int> point) {
  Zo::Image::Surface one = screen().grab(Zo::Box<int>(point.x, point.y, point.x + 1, point.y + 1));
  return one.pixel(0, 0);
}

std::uint32_t HeadlessScreenTest::widgetPixel(Glob const& widget, XY<int> local) {
  return screenPixel(widget.screenPosition() + local);
}

std::pair<int, int> HeadlessScreenTest::iconPixelsShown(Glob const& widget, std::string_view name, int side,
                                                        XY<int> corner, Colour const& colour) {
  Zo::Image::Surface const icon = IconCache::get(name, side, colour).surface;
  int matching = 0, solid = 0;
  for (int row = 0; row < icon.height(); ++row)
    for (int x = 0; x < icon.width(); ++x)
      if (icon.pixel(x, row) >> 24 == 255) {
        ++solid;
        XY<int> const at(corner.x + x, corner.y + icon.height() - 1 - row);
        matching += near(rgbOf(widgetPixel(widget, at)), rgbOf(colour), 1) ? 1 : 0;
      }
  return {matching, solid};
}

::testing::AssertionResult matchesGolden(Zo::Image::Surface const& actual, std::string const& goldenPath,
                                         int channelTolerance, double pixelFraction) {
  if (std::getenv("ZOWIDGETS_UPDATE_GOLDEN")) {
    std::filesystem::create_directories(std::filesystem::path(goldenPath).parent_path());
    return actual.savePNG(goldenPath) ? ::testing::AssertionSuccess()
                                      : ::testing::AssertionFailure() << "could not write " << goldenPath;
  }
  Zo::Image::Surface golden = Zo::Image::Surface::loadPNG(goldenPath);
  if (golden.empty())
    return ::testing::AssertionFailure() << "no golden picture at " << goldenPath
                                         << " (run with ZOWIDGETS_UPDATE_GOLDEN=1 to make it)";
  // Compare through PNG so that both sides went through the same rounding.
  std::string actualPath = std::filesystem::path(goldenPath).filename().string() + ".actual.png";
  actual.savePNG(actualPath);
  Zo::Image::Surface reread = Zo::Image::Surface::loadPNG(actualPath);
  if (reread.width() != golden.width() || reread.height() != golden.height())
    return ::testing::AssertionFailure() << "size " << reread.width() << "x" << reread.height() << " but golden is "
                                         << golden.width() << "x" << golden.height() << "; actual in "
                                         << std::filesystem::absolute(actualPath);
  long long over = 0;
  for (int row = 0; row < golden.height(); ++row)
    for (int x = 0; x < golden.width(); ++x) {
      std::uint32_t a = reread.pixel(x, row), g = golden.pixel(x, row);
      for (int shift = 0; shift < 32; shift += 8)
        if (std::abs(int((a >> shift) & 0xFF) - int((g >> shift) & 0xFF)) > channelTolerance) {
          ++over;
          break;
        }
    }
  double allowed = pixelFraction * golden.width() * golden.height();
  if (over > allowed)
    return ::testing::AssertionFailure() << over << " pixels differ from " << goldenPath << " by more than "
                                         << channelTolerance << "; actual in " << std::filesystem::absolute(actualPath);
  std::filesystem::remove(actualPath);
  return ::testing::AssertionSuccess();
}

Rgb rgbOf(std::uint32_t argb) { return Rgb{int((argb >> 16) & 0xFF), int((argb >> 8) & 0xFF), int(argb & 0xFF)}; }

Rgb rgbOf(Colour const& colour) {
  auto channel = [](double v) { return int(std::lround(std::clamp(v, 0.0, 1.0) * 255.0)); };
  return Rgb{channel(colour.red()), channel(colour.green()), channel(colour.blue())};
}

bool near(Rgb a, Rgb b, int tolerance) {
  return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance && std::abs(a.b - b.b) <= tolerance;
}

std::ostream& operator<<(std::ostream& out, Rgb const& rgb) {
  return out << "rgb(" << rgb.r << ", " << rgb.g << ", " << rgb.b << ")";
}
