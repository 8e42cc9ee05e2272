#pragma once

#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <ostream>
#include <string>
#include <vector>

// One small drawing for each kind of primitive a renderer takes, in the
// renderer's virtual order, for golden pictures of renderers. Each is drawn
// on white, in a picture of kSize.
namespace PrimitiveSamples {

inline constexpr XY<int> kSize{64, 48};

struct Sample {
  std::string name; // "rect", "ellipse", ... "shader_rect"
  void (*draw)(iGraphicPrimitivesRenderer& renderer);
};

std::vector<Sample> const& all();
inline void PrintTo(Sample const& sample, std::ostream* out) { *out << sample.name; }

// A white picture of kSize.
Zo::Image::Surface blankPicture();

} // namespace PrimitiveSamples
