// Each kind of primitive drawn through the back buffer's renderer onto the
// cairo renderer. What it passes through must come out exactly as the cairo
// renderer draws it itself (the host's pictures); the four it leaves to the
// base class have pictures of their own.
#include "support/PrimitiveSamples.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/editor/VideoWindowBackBuffer.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>

#include <set>
#include <string>

namespace {

bool builtByTheBase(std::string const& name) {
  static std::set<std::string> const names = {"rounded_rect", "triangle_strip", "triangle_fan", "line_strip"};
  return names.contains(name);
}

class BackBufferGolden : public ::testing::TestWithParam<PrimitiveSamples::Sample> {};

TEST_P(BackBufferGolden, MatchesItsPicture) {
  Zo::Image::Surface picture = PrimitiveSamples::blankPicture();
  iVideoWindowBackBuffer::Renderer renderer(Zo::make<CanvasRenderer>(picture));
  GetParam().draw(renderer);
  std::string const golden = builtByTheBase(GetParam().name)
                                 ? std::string(ZO_GOLDEN_DIR "/backbuffer_") + GetParam().name + ".png"
                                 : std::string(ZO_TESTS_DIR "/host/golden/primitive_") + GetParam().name + ".png";
  EXPECT_TRUE(matchesGolden(picture, golden, 0, 0.0));
}

INSTANTIATE_TEST_SUITE_P(EveryKind, BackBufferGolden, ::testing::ValuesIn(PrimitiveSamples::all()),
                         [](auto const& info) { return info.param.name; });

} // namespace
