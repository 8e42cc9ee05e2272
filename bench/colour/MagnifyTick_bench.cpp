// One tick of the screen magnifier with a view of 200 by 220 pixels, on a
// headless screen of 1920 by 1080 covered by a window: the grab of the source
// box round the pointer, the enlargement and the paint of the view. Against
// it, a plain copy of a 200 by 220 block of the same screen through the same
// screen service, and a bare row-by-row copy of such a block between two
// pictures in memory. The view's centre pixel is checked before timing.

#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

XY<int> const kView(200, 220);
Zo::Box<int> const kBlock(860, 430, 860 + kView.x, 430 + kView.y);

// A window over the whole screen with something to show.
class Desktop : public Glob {
public:
  Desktop() : Glob(info()) { GlobManager::realize(this); }

protected:
  void draw(CanvasRenderer& renderer) override {
    for (int x = 0; x < width(); x += 40)
      renderer.renderPrimitive(
          Glib::RectDescription(Zo::Box<int>(x, 0, x + 20, height()), Colour(x / double(width()), 0.4, 0.6)));
  }

private:
  static GlobCreationInfo info() {
    GlobCreationInfo made(XY<int>(HeadlessScreen::kDefaultWidth, HeadlessScreen::kDefaultHeight));
    made.screenPosition = XY<int>(0, 0);
    return made;
  }
};

struct MagnifierScene {
  explicit MagnifierScene(int level) {
    int const gap = UifStd::getWidgetGap();
    MagnifyTool::InitArgs args(GlobCreationInfo(XY<int>(kView.x + gap * 2, kView.y + gap * 2)), MagnifyTool::kLens,
                               level);
    args.screenPosition = XY<int>(100, 100);
    tool = new MagnifyTool(args);
    GlobManager::realize(tool);
    HeadlessInput::moveTo(XY<int>(kBlock.x0 + kView.x / 2, kBlock.y0 + kView.y / 2));
  }
  ~MagnifierScene() { delete tool; }
  Desktop desktop;
  MagnifyTool* tool = nullptr;
};

void magnifierTick(benchmark::State& state) {
  MagnifierScene scene(static_cast<int>(state.range(0)));
  scene.tool->handleTimerEvent();
  XY<int> const marker = scene.tool->screenPosition() + scene.tool->getMarkerPosition();
  Zo::Image::Surface const shown = headlessScreen().grab(Zo::Box<int>(marker, marker + XY<int>(1, 1)));
  XY<int> const mouse = glib_getMousePos();
  Zo::Image::Surface const under = headlessScreen().grab(Zo::Box<int>(mouse, mouse + XY<int>(1, 1)));
  if (shown.pixel(0, 0) != under.pixel(0, 0)) {
    state.SkipWithError("the view's centre does not show the pixel under the pointer");
    return;
  }
  for (auto _ : state)
    scene.tool->handleTimerEvent();
  state.counters["grabbed_pixels"] = scene.tool->sourceBoxAt(mouse).width() * scene.tool->sourceBoxAt(mouse).height();
}
BENCHMARK(magnifierTick)->Arg(1)->Arg(2)->Arg(8)->Unit(benchmark::kMicrosecond);

void plainScreenCopy(benchmark::State& state) {
  MagnifierScene scene(2);
  for (auto _ : state) {
    Zo::Ptr<iHostImage> image = OS().media().getHostImage(kBlock);
    benchmark::DoNotOptimize(image->pixels().data());
  }
}
BENCHMARK(plainScreenCopy)->Unit(benchmark::kMicrosecond);

void plainMemoryCopy(benchmark::State& state) {
  Zo::Image::Surface const screen(HeadlessScreen::kDefaultWidth, HeadlessScreen::kDefaultHeight);
  Zo::Image::Surface block(kView.x, kView.y);
  for (auto _ : state) {
    for (int row = 0; row < kView.y; ++row)
      std::memcpy(block.data() + row * block.stride(),
                  screen.data() + (kBlock.y0 + row) * screen.stride() + kBlock.x0 * 4, kView.x * 4);
    benchmark::DoNotOptimize(block.data());
  }
}
BENCHMARK(plainMemoryCopy)->Unit(benchmark::kMicrosecond);

} // namespace
