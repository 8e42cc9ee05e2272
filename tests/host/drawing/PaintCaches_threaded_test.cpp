// Renderers on several threads share the kept text layouts and masks: each
// thread's pictures must come out as one thread alone draws them, while the
// others fill, use and evict the same caches.

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/drawing/detail/RoundedBoxes.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 60;

// One picture of round `round`: text at a fraction of a pixel that changes
// with the round, a rounded box and a rounded outline whose size does too.
Zo::Image::Surface draw(int round) {
  Zo::Image::Surface surface(160, 40);
  CanvasRenderer renderer(surface);
  double const fraction = (round % 4) / 4.0;
  Glib::FontDesc const font("DejaVu Sans", 13, 0);
  LightweightString<wchar_t> const text(std::to_wstring(round % 7).append(L" items").c_str());
  renderer.renderPrimitive(Glib::TextDescription(text, XY<double>(3.0 + fraction, 12.0), font, Colour(0, 0, 0)));
  Zo::Box<double> const knob(90.0 + fraction, 4.0, 100.0 + fraction + round % 5, 30.0);
  renderer.renderPrimitive(Glib::RoundedRectDescription(knob, 3.0, Colour(0.2, 0.4, 0.9)));
  renderer.renderPrimitive(Glib::RoundedRectDescription(Zo::Box<double>(110.0, 4.0, 150.0, 30.0 - round % 3), 4.0,
                                                        Colour::invalid(), Colour(0.9, 0.2, 0.1), 1.5));
  return surface;
}

} // namespace

TEST(PaintCachesThreads, RenderersOnSeveralThreadsShareTheKeptMasks) {
  std::vector<Zo::Image::Surface> expected;
  for (int round = 0; round < kRounds; ++round)
    expected.push_back(draw(round));
  // Starting empty, the threads fill the caches together, and replace each
  // other's text masks as they draw the same runs at other fractions of a
  // pixel.
  Glib::TextLayout::clearCache();
  RoundedBoxes::forgetMasks();
  std::vector<int> mismatches(kThreads, 0);
  std::vector<std::thread> painters;
  for (int t = 0; t < kThreads; ++t)
    painters.emplace_back([t, &expected, &mismatches] {
      for (int round = 0; round < kRounds; ++round) {
        int const which = (round * (t + 1)) % kRounds;
        if (!samePixels(draw(which), expected[which]))
          ++mismatches[t];
      }
    });
  for (std::thread& painter : painters)
    painter.join();
  for (int t = 0; t < kThreads; ++t)
    EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}
