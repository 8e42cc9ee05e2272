// Renders a sheet of every primitive, in the default palette and fonts, and
// compares it with the picture kept under data/drawing. Set
// ZO_UPDATE_DRAWING_GOLDENS=1 to write the pictures afresh (then look at
// them before keeping them).
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

using Zo::Box;
using Zo::Image::Surface;

namespace {

constexpr double kSheetWidth = 360.0;
constexpr double kSheetHeight = 260.0;

std::filesystem::path goldenFolder() {
  return std::filesystem::path(ZO_TESTS_DIR) / "host" / "drawing" / "data" / "drawing";
}

// Sheet coordinates are measured from the top-left at scale 1, which reads
// more naturally for a layout; they are scaled and flipped to the
// renderer's bottom-up pixels here.
class Sheet {
public:
  explicit Sheet(double scale) : scale_(scale) {}

  Box<double> box(double left, double top, double width, double height) const {
    return Box<double>(left * scale_, (kSheetHeight - top - height) * scale_, (left + width) * scale_,
                       (kSheetHeight - top) * scale_);
  }
  XY<double> point(double x, double y) const { return XY<double>(x * scale_, (kSheetHeight - y) * scale_); }
  double length(double value) const { return value * scale_; }

private:
  double scale_;
};

Surface checkerboard() {
  Surface image(4, 4);
  for (int row = 0; row < 4; ++row)
    for (int x = 0; x < 4; ++x)
      image.setPixel(x, row, (x + row) % 2 ? 0xFFE0A458u : 0xFF2F5A8Cu);
  image.setPixel(0, 0, 0xFFFFFFFFu);
  return image;
}

Surface renderSheet(double scale) {
  UifStd::setScale(scale);
  Palette const palette;
  Sheet const at(scale);
  Surface surface(static_cast<int>(kSheetWidth * scale), static_cast<int>(kSheetHeight * scale));
  CanvasRenderer renderer(surface);

  renderer.renderPrimitive(Glib::RectDescription(at.box(0, 0, kSheetWidth, kSheetHeight), palette.window()));
  renderer.renderPrimitive(
      Glib::ShaderRectDescription::vertical(at.box(0, 0, kSheetWidth, 34), palette.window(-2), palette.window(3)));
  renderer.renderPrimitive(
      Glib::TextDescription(L"Drawing sheet", at.box(10, 0, 200, 34), UifStd::getTitleFont(), palette.headingText()));
  renderer.renderPrimitive(
      Glib::LineDescription(at.point(0, 34), at.point(kSheetWidth, 34), at.length(1), palette.subheadingText()));

  // Boxes in the scheme's colours; the last with an outline.
  Colour const swatches[] = {palette.selection(), palette.doIt(), palette.success(), palette.warning()};
  for (int i = 0; i < 4; ++i)
    renderer.renderPrimitive(Glib::RectDescription(at.box(10 + 28 * i, 44, 22, 22), swatches[i]));
  Glib::RectDescription framed(at.box(122, 44, 22, 22), palette.childWindow());
  framed.outline = palette.text();
  framed.outlineWidth = at.length(2);
  renderer.renderPrimitive(framed);

  // Rounded boxes: a button with its label, and an outline.
  Glib::drawRoundedRect(renderer, at.box(156, 44, 90, 22), palette.window(4), makeButtonPalette(palette).window(),
                        at.length(5));
  renderer.renderPrimitive(Glib::TextDescription(L"Button", at.box(156, 44, 90, 22), UifStd::getFont(), palette.text(),
                                                 Glib::eTextAlignment::Centre));
  Glib::drawRoundedRectOutline(renderer, at.box(254, 44, 96, 22), palette.doIt(), at.length(11), at.length(2));

  // Ellipses: a disc, a ring, a pie slice, an ellipse in a box, an arc.
  renderer.renderPrimitive(Glib::EllipseDescription::disc(at.point(25, 92), at.length(14), palette.doIt()));
  renderer.renderPrimitive(
      Glib::EllipseDescription::ring(at.point(62, 92), at.length(11), at.length(5), palette.subheadingText()));
  Glib::EllipseDescription slice = Glib::EllipseDescription::disc(at.point(99, 92), at.length(14), palette.success());
  slice.startAngle = 30.0;
  slice.endAngle = 300.0;
  renderer.renderPrimitive(slice);
  renderer.renderPrimitive(
      Glib::EllipseDescription::inBox(at.box(120, 80, 44, 24), at.length(2), palette.text(), palette.selection()));
  Glib::EllipseDescription arc =
      Glib::EllipseDescription::ring(at.point(190, 96), at.length(14), at.length(3), palette.warning());
  arc.startAngle = 0.0;
  arc.endAngle = 180.0;
  renderer.renderPrimitive(arc);

  // Lines and a curve.
  renderer.renderPrimitive(Glib::LineDescription(at.point(216, 80), at.point(260, 80), at.length(1), palette.text()));
  renderer.renderPrimitive(Glib::LineDescription(at.point(216, 86), at.point(260, 86), at.length(3), palette.text()));
  renderer.renderPrimitive(Glib::LineDescription(at.point(216, 94), at.point(260, 108), at.length(2), palette.doIt()));
  renderer.renderPrimitive(Glib::BezierCurveDescription(at.point(270, 108), at.point(280, 70), at.point(340, 120),
                                                        at.point(350, 80), at.length(2), palette.subheadingText()));

  // Washes over what is there.
  Colour const white(1.0, 1.0, 1.0);
  renderer.renderPrimitive(Glib::AlphaRectDescription(at.box(10, 114, 60, 30), palette.doIt(), 1.0));
  renderer.renderPrimitive(Glib::AlphaRectDescription(at.box(40, 124, 60, 30), white, 0.35));

  // Triangles: a fan of three colours, a flat strip, and a zigzag.
  Glib::TriangleFanDescription fan;
  fan.points = {at.point(110, 154), at.point(150, 154), at.point(130, 114)};
  fan.colours = {palette.warning(), palette.success(), palette.doIt()};
  renderer.renderPrimitive(fan);
  Glib::TriangleStripDescription strip;
  strip.points = {at.point(160, 154), at.point(170, 114), at.point(180, 154), at.point(190, 114), at.point(200, 154)};
  strip.colours = {palette.selection()};
  renderer.renderPrimitive(strip);
  Glib::LineStripDescription zigzag;
  zigzag.points = {at.point(210, 150), at.point(225, 118), at.point(240, 150), at.point(255, 118), at.point(270, 150)};
  zigzag.colours = {palette.subheadingText()};
  zigzag.width = at.length(3);
  renderer.renderPrimitive(zigzag);

  // A small picture, blown up square and smooth.
  Surface const picture = checkerboard();
  renderer.renderPrimitive(Glib::ImageDescription(picture, at.box(282, 114, 32, 32)));
  renderer.renderPrimitive(Glib::ImageDescriptionEx(picture, Glib::TopDownRect(0, 0, 4, 4), at.box(320, 114, 32, 32),
                                                    Glib::eImageFilter::Bilinear));

  // Text: a subheading, a wrapped paragraph on a child panel, small print.
  renderer.renderPrimitive(Glib::TextDescription(L"Subheading", at.box(10, 162, 200, 20), UifStd::getSubheadingFont(),
                                                 palette.subheadingText()));
  renderer.renderPrimitive(Glib::RectDescription(at.box(10, 184, 230, 66), palette.childWindow()));
  Glib::TextDescription paragraph(L"Wrapped text fills its box line by line, breaking between words, and stays "
                                  L"inside the box.",
                                  at.box(14, 186, 222, 62), UifStd::getFont(), palette.text());
  paragraph.wordWrap = true;
  paragraph.verticalAlignment = Glib::eTextVerticalAlignment::Top;
  renderer.renderPrimitive(paragraph);
  renderer.renderPrimitive(Glib::TextDescription(L"Small print, right", at.box(246, 230, 104, 20),
                                                 UifStd::getSubscriptFont(), palette.text(-4),
                                                 Glib::eTextAlignment::Right));
  UifStd::setScale(1.0);
  return surface;
}

void checkAgainstGolden(double scale, char const* name) {
  Surface const rendered = renderSheet(scale);
  std::filesystem::path const golden = goldenFolder() / name;
  if (std::getenv("ZO_UPDATE_DRAWING_GOLDENS")) {
    std::filesystem::create_directories(goldenFolder());
    ASSERT_TRUE(rendered.savePNG(golden.string()));
    GTEST_SKIP() << "wrote " << golden;
  }
  Surface const expected = Surface::loadPNG(golden.string());
  ASSERT_FALSE(expected.empty()) << "missing " << golden;
  // Text may come out a little differently on another build of the font
  // stack; shapes may not. A few pixels may differ by a few levels.
  Surface::Difference const difference = Surface::compare(expected, rendered, 24);
  ASSERT_TRUE(difference.sameSize);
  long long const pixels = static_cast<long long>(rendered.width()) * rendered.height();
  EXPECT_LE(difference.differingPixels, pixels / 200) << "max channel difference " << difference.maxChannel;
}

} // namespace

TEST(DrawingGolden, SheetAtScaleOne) { checkAgainstGolden(1.0, "sheet-scale1.png"); }

TEST(DrawingGolden, SheetAtScaleTwo) { checkAgainstGolden(2.0, "sheet-scale2.png"); }

TEST(DrawingGolden, ScaleTwoIsScaleOneDoubled) {
  // Shapes at scale 2 cover the same places as at scale 1, twice as big:
  // compare the doubled-down picture with the small one away from text.
  Surface const one = renderSheet(1.0);
  Surface const two = renderSheet(2.0);
  Surface reduced(one.width(), one.height());
  CanvasRenderer renderer(reduced);
  renderer.renderPrimitive(Glib::ImageDescriptionEx(two, Glib::TopDownRect(0, 0, two.width(), two.height()),
                                                    Box<double>(0, 0, one.width(), one.height()),
                                                    Glib::eImageFilter::Good));
  Surface::Difference const difference = Surface::compare(one, reduced, 48);
  long long const pixels = static_cast<long long>(one.width()) * one.height();
  EXPECT_LE(difference.differingPixels, pixels / 20);
}
