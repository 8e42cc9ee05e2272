#include <zowidgets/editor/VideoWindowBackBuffer.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Zo::Box;
using Renderer = iVideoWindowBackBuffer::Renderer;

namespace {

// Keeps every call it gets: which operation, the address and count of the
// items, and copies of the items the base class builds composites from.
class RecordingRenderer : public iGraphicPrimitivesRenderer {
public:
  struct Call {
    std::string operation;
    void const* items = nullptr;
    unsigned int count = 0;
    friend bool operator==(Call const&, Call const&) = default;
  };

  void setClipRegion(Zo::Ptr<iRegion> region) override {
    calls.push_back({"setClipRegion", region.get(), 0});
    regions.push_back(region);
  }
  void setAntialiasingEnabled(bool enabled) override { calls.push_back({"setAntialiasingEnabled", nullptr, enabled}); }
  unsigned int getCaps() const override {
    ++capsAsked;
    return caps;
  }

  void renderMulti(Glib::RectDescription const* items, unsigned int count) override {
    note("Rect", items, count, rects);
  }
  void renderMulti(Glib::EllipseDescription const* items, unsigned int count) override {
    note("Ellipse", items, count, ellipses);
  }
  void renderMulti(Glib::LineDescription const* items, unsigned int count) override {
    note("Line", items, count, lines);
  }
  void renderMulti(Glib::TextDescription const* items, unsigned int count) override { note("Text", items, count); }
  void renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) override {
    note("AlphaRect", items, count);
  }
  void renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) override {
    note("BezierCurve", items, count);
  }
  void renderMulti(Glib::ImageDescription const* items, unsigned int count) override {
    note("Image", items, count, images);
  }
  void renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) override {
    note("ImageEx", items, count);
  }
  void renderMulti(Glib::RoundedRectDescription const* items, unsigned int count) override {
    note("RoundedRect", items, count);
  }
  void renderMulti(Glib::TriangleStripDescription const* items, unsigned int count) override {
    note("TriangleStrip", items, count);
  }
  void renderMulti(Glib::TriangleFanDescription const* items, unsigned int count) override {
    note("TriangleFan", items, count);
  }
  void renderMulti(Glib::LineStripDescription const* items, unsigned int count) override {
    note("LineStrip", items, count);
  }
  void renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) override {
    note("ShaderRect", items, count);
  }

  std::vector<std::string> operations() const {
    std::vector<std::string> names;
    for (Call const& call : calls)
      names.push_back(call.operation);
    return names;
  }

  std::vector<Call> calls;
  std::vector<Zo::Ptr<iRegion>> regions;
  std::vector<Glib::RectDescription> rects;
  std::vector<Glib::EllipseDescription> ellipses;
  std::vector<Glib::LineDescription> lines;
  std::vector<Glib::ImageDescription> images;
  unsigned int caps = 0;
  mutable int capsAsked = 0;

private:
  template <class Description> void note(char const* operation, Description const* items, unsigned int count) {
    calls.push_back({operation, items, count});
  }
  template <class Description>
  void note(char const* operation, Description const* items, unsigned int count, std::vector<Description>& kept) {
    note(operation, items, count);
    kept.insert(kept.end(), items, items + count);
  }
};

class BackBufferRenderer : public ::testing::Test {
protected:
  Zo::Ptr<RecordingRenderer> inner = Zo::make<RecordingRenderer>();
  Renderer renderer{inner};
};

Colour const kRed(1, 0, 0);
Colour const kBlue(0, 0, 1);

TEST_F(BackBufferRenderer, HoldsTheRendererItWasGiven) { EXPECT_EQ(renderer.inner().get(), inner.get()); }

TEST_F(BackBufferRenderer, ClipRegionArrivesAsTheSameRegion) {
  auto const region = Zo::make<iRegion>(std::vector{Box<int>(1, 2, 3, 4)});
  renderer.setClipRegion(region);
  renderer.setClipRegion(Zo::Ptr<iRegion>());
  ASSERT_EQ(inner->regions.size(), 2u);
  EXPECT_EQ(inner->regions[0].get(), region.get());
  EXPECT_FALSE(inner->regions[1]);
}

TEST_F(BackBufferRenderer, AntialiasingSwitchArrivesAsGiven) {
  renderer.setAntialiasingEnabled(false);
  renderer.setAntialiasingEnabled(true);
  EXPECT_EQ(inner->calls, (std::vector<RecordingRenderer::Call>{{"setAntialiasingEnabled", nullptr, 0},
                                                                {"setAntialiasingEnabled", nullptr, 1}}));
}

TEST_F(BackBufferRenderer, CapabilitiesAreTheInnerRenderersAnswer) {
  inner->caps = iGraphicPrimitivesRenderer::kCapsFilteredImageScaling;
  EXPECT_EQ(renderer.getCaps(), iGraphicPrimitivesRenderer::kCapsFilteredImageScaling);
  inner->caps = 0x5a5u;
  EXPECT_EQ(renderer.getCaps(), 0x5a5u);
  EXPECT_EQ(inner->capsAsked, 2);
}

TEST_F(BackBufferRenderer, EachPassedPrimitiveArrivesWithTheSameItemsAndCount) {
  Glib::RectDescription rects[3];
  Glib::EllipseDescription ellipses[1];
  Glib::LineDescription lines[2];
  Glib::TextDescription texts[1];
  Glib::AlphaRectDescription alphaRects[4];
  Glib::BezierCurveDescription curves[2];
  Glib::ImageDescription images[1];
  Glib::ImageDescriptionEx imagesEx[2];
  Glib::ShaderRectDescription shaderRects[5];
  renderer.renderMulti(rects, 3);
  renderer.renderMulti(ellipses, 1);
  renderer.renderMulti(lines, 2);
  renderer.renderMulti(texts, 1);
  renderer.renderMulti(alphaRects, 4);
  renderer.renderMulti(curves, 2);
  renderer.renderMulti(images, 1);
  renderer.renderMulti(imagesEx, 2);
  renderer.renderMulti(shaderRects, 5);
  renderer.renderMulti(rects, 0);
  using Call = RecordingRenderer::Call;
  EXPECT_EQ(inner->calls, (std::vector<Call>{{"Rect", rects, 3},
                                             {"Ellipse", ellipses, 1},
                                             {"Line", lines, 2},
                                             {"Text", texts, 1},
                                             {"AlphaRect", alphaRects, 4},
                                             {"BezierCurve", curves, 2},
                                             {"Image", images, 1},
                                             {"ImageEx", imagesEx, 2},
                                             {"ShaderRect", shaderRects, 5},
                                             {"Rect", rects, 0}}));
}

TEST_F(BackBufferRenderer, RoundedRectArrivesAsRectsDiscsLinesAndArcs) {
  Glib::RoundedRectDescription const shape(Box<double>(0, 0, 40, 20), 5.0, kBlue, kRed, 2.0);
  renderer.renderMulti(&shape, 1);
  EXPECT_EQ(inner->operations(), (std::vector<std::string>{"Rect", "Ellipse", "Line", "Ellipse"}));
  // The fill: a cross of two rectangles' worth and four quarter discs.
  ASSERT_EQ(inner->rects.size(), 3u);
  EXPECT_EQ(inner->rects[0].box, Box<double>(5, 0, 35, 20));
  EXPECT_EQ(inner->rects[1].box, Box<double>(0, 5, 5, 15));
  EXPECT_EQ(inner->rects[2].box, Box<double>(35, 5, 40, 15));
  for (auto const& rect : inner->rects)
    EXPECT_EQ(rect.fill, kBlue);
  ASSERT_EQ(inner->ellipses.size(), 8u);
  for (int i = 0; i < 4; ++i) {
    Glib::EllipseDescription const& disc = inner->ellipses[i];
    EXPECT_EQ(disc.radii, XY<double>(5, 5));
    EXPECT_EQ(disc.fillColour, kBlue);
    EXPECT_EQ(disc.startAngle, 90.0 * i);
    EXPECT_EQ(disc.endAngle, 90.0 * (i + 1));
  }
  // The outline: four edges inside the box and four quarter rings.
  ASSERT_EQ(inner->lines.size(), 4u);
  EXPECT_EQ(inner->lines[0].from, XY<double>(5, 19));
  EXPECT_EQ(inner->lines[0].to, XY<double>(35, 19));
  for (auto const& line : inner->lines) {
    EXPECT_EQ(line.width, 2.0);
    EXPECT_EQ(line.colour, kRed);
  }
  for (int i = 4; i < 8; ++i) {
    EXPECT_EQ(inner->ellipses[i].radii, XY<double>(4, 4));
    EXPECT_EQ(inner->ellipses[i].lineWidth, 2.0);
    EXPECT_EQ(inner->ellipses[i].lineColour, kRed);
    EXPECT_FALSE(inner->ellipses[i].fillColour.use());
  }
}

TEST_F(BackBufferRenderer, TriangleStripsArriveAsOnePictureEach) {
  Glib::TriangleStripDescription strips[2];
  strips[0].points = {{2, 3}, {12, 3}, {2, 13}, {12, 13}};
  strips[0].colours = {kRed};
  strips[1].points = {{20.5, 0}, {30, 0}, {25, 9.5}};
  strips[1].colours = {kRed, kBlue, kBlue};
  renderer.renderMulti(strips, 2);
  EXPECT_EQ(inner->operations(), (std::vector<std::string>{"Image"}));
  ASSERT_EQ(inner->images.size(), 2u);
  // Each picture covers the whole pixels its triangles touch.
  Glib::ImageDescription const& square = inner->images[0];
  EXPECT_EQ(square.destination, Box<double>(2, 3, 12, 13));
  ASSERT_EQ(square.image.width(), 10);
  ASSERT_EQ(square.image.height(), 10);
  for (int row = 0; row < 10; ++row)
    for (int x = 0; x < 10; ++x)
      ASSERT_EQ(square.image.pixel(x, row), 0xFFFF0000u) << x << ", " << row;
  Glib::ImageDescription const& blended = inner->images[1];
  EXPECT_EQ(blended.destination, Box<double>(20, 0, 30, 10));
  // Red at its first corner (bottom left) fades to blue at the others.
  std::uint32_t const nearRed = blended.image.pixel(1, 9);
  std::uint32_t const nearBlue = blended.image.pixel(8, 9);
  EXPECT_GT((nearRed >> 16) & 0xFF, nearRed & 0xFF);
  EXPECT_GT(nearBlue & 0xFF, (nearBlue >> 16) & 0xFF);
  EXPECT_EQ(blended.image.pixel(1, 0), 0u); // outside the triangle
}

TEST_F(BackBufferRenderer, TriangleFanArrivesAsAPictureOfItsPolygon) {
  Glib::TriangleFanDescription fan;
  fan.points = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  fan.colours = {kBlue};
  renderer.renderMulti(&fan, 1);
  EXPECT_EQ(inner->operations(), (std::vector<std::string>{"Image"}));
  ASSERT_EQ(inner->images.size(), 1u);
  EXPECT_EQ(inner->images[0].destination, Box<double>(0, 0, 10, 10));
  EXPECT_EQ(inner->images[0].alpha, 1.0);
  for (int row = 0; row < 10; ++row)
    for (int x = 0; x < 10; ++x)
      ASSERT_EQ(inner->images[0].image.pixel(x, row), 0xFF0000FFu) << x << ", " << row;
}

TEST_F(BackBufferRenderer, LineStripArrivesAsOneLinePerSegment) {
  Glib::LineStripDescription strip;
  strip.points = {{0, 2}, {6, 2}, {6, 9}, {1, 9}};
  strip.colours = {kRed, kBlue};
  strip.width = 3.0;
  renderer.renderMulti(&strip, 1);
  EXPECT_EQ(inner->operations(), (std::vector<std::string>{"Line"}));
  ASSERT_EQ(inner->lines.size(), 3u);
  EXPECT_EQ(inner->lines[0].from, XY<double>(0, 2));
  EXPECT_EQ(inner->lines[0].to, XY<double>(6, 2));
  EXPECT_EQ(inner->lines[0].colour, kRed);
  EXPECT_EQ(inner->lines[1].from, XY<double>(6, 2));
  EXPECT_EQ(inner->lines[1].to, XY<double>(6, 9));
  EXPECT_EQ(inner->lines[1].colour, kBlue);
  // Segments beyond the colours keep the last one.
  EXPECT_EQ(inner->lines[2].to, XY<double>(1, 9));
  EXPECT_EQ(inner->lines[2].colour, kBlue);
  for (auto const& line : inner->lines)
    EXPECT_EQ(line.width, 3.0);
}

TEST_F(BackBufferRenderer, CompositesNeverReachTheInnerRendererWhole) {
  Glib::RoundedRectDescription const rounded(Box<double>(0, 0, 10, 10), 2.0, kRed);
  Glib::TriangleStripDescription strip;
  strip.points = {{0, 0}, {4, 0}, {0, 4}};
  strip.colours = {kRed};
  Glib::TriangleFanDescription fan;
  fan.points = strip.points;
  fan.colours = strip.colours;
  Glib::LineStripDescription lineStrip;
  lineStrip.points = strip.points;
  lineStrip.colours = strip.colours;
  renderer.renderMulti(&rounded, 1);
  renderer.renderMulti(&strip, 1);
  renderer.renderMulti(&fan, 1);
  renderer.renderMulti(&lineStrip, 1);
  for (std::string const& operation : inner->operations()) {
    EXPECT_NE(operation, "RoundedRect");
    EXPECT_NE(operation, "TriangleStrip");
    EXPECT_NE(operation, "TriangleFan");
    EXPECT_NE(operation, "LineStrip");
  }
  EXPECT_FALSE(inner->calls.empty());
}

TEST(BackBufferRendererWithoutInner, DrawsNothingAndHasNoCapabilities) {
  Renderer renderer{Zo::Ptr<iGraphicPrimitivesRenderer>()};
  Glib::RectDescription const rect(Box<double>(0, 0, 4, 4), kRed);
  Glib::RoundedRectDescription const rounded(Box<double>(0, 0, 10, 10), 2.0, kRed);
  renderer.renderMulti(&rect, 1);
  renderer.renderMulti(&rounded, 1);
  renderer.setClipRegion(Zo::make<iRegion>());
  renderer.setAntialiasingEnabled(false);
  EXPECT_EQ(renderer.getCaps(), 0u);
  EXPECT_FALSE(renderer.inner());
}

} // namespace
