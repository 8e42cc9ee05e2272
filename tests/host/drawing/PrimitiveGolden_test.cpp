// Each kind of primitive drawn by the cairo renderer, compared with its
// picture under tests/host/golden (the same pictures that the editor's
// back-buffer renderer is held to for what it passes through).
#include "support/PrimitiveSamples.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>

#include <string>

namespace {

class PrimitiveGolden : public ::testing::TestWithParam<PrimitiveSamples::Sample> {};

TEST_P(PrimitiveGolden, MatchesItsPicture) {
  Zo::Image::Surface picture = PrimitiveSamples::blankPicture();
  CanvasRenderer renderer(picture);
  GetParam().draw(renderer);
  EXPECT_TRUE(matchesGolden(picture, std::string(ZO_GOLDEN_DIR "/primitive_") + GetParam().name + ".png"));
}

INSTANTIATE_TEST_SUITE_P(EveryKind, PrimitiveGolden, ::testing::ValuesIn(PrimitiveSamples::all()),
                         [](auto const& info) { return info.param.name; });

} // namespace
