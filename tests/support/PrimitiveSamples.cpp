#include "support/PrimitiveSamples.h"

using Zo::Box;

namespace PrimitiveSamples {

namespace {

Colour const kRed(0.85, 0.15, 0.1);
Colour const kGreen(0.1, 0.65, 0.25);
Colour const kBlue(0.15, 0.3, 0.85);
Colour const kInk(0.1, 0.1, 0.15);
Colour const kAmber(0.95, 0.7, 0.1);

template <class Description> void draw(iGraphicPrimitivesRenderer& renderer, std::vector<Description> const& items) {
  renderer.renderMulti(items.data(), static_cast<unsigned int>(items.size()));
}

Zo::Image::Surface checkerboard() {
  Zo::Image::Surface image(4, 4);
  for (int row = 0; row < 4; ++row)
    for (int x = 0; x < 4; ++x)
      image.setPixel(x, row, (x + row) % 2 ? 0xFFE0A458u : 0xFF2F5A8Cu);
  image.setPixel(0, 0, 0xFFFFFFFFu);
  return image;
}

void rects(iGraphicPrimitivesRenderer& renderer) {
  Glib::RectDescription framed(Box<double>(6, 6, 38, 30), kBlue);
  framed.outline = kRed;
  framed.outlineWidth = 2.0;
  draw(renderer, std::vector{framed, Glib::RectDescription(Box<double>(32, 20, 58, 42), kGreen)});
}

void ellipses(iGraphicPrimitivesRenderer& renderer) {
  Glib::EllipseDescription slice = Glib::EllipseDescription::disc(XY<double>(48, 32), 12, kGreen);
  slice.startAngle = 30.0;
  slice.endAngle = 300.0;
  draw(renderer, std::vector{Glib::EllipseDescription::disc(XY<double>(16, 32), 10, kBlue),
                             Glib::EllipseDescription::ring(XY<double>(22, 14), 8, 3, kRed), slice});
}

void lines(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer, std::vector{Glib::LineDescription(XY<double>(6, 40), XY<double>(58, 40), 1, kInk),
                             Glib::LineDescription(XY<double>(6, 6), XY<double>(58, 32), 3, kBlue),
                             Glib::LineDescription(XY<double>(10, 6), XY<double>(10, 34), 2, kRed)});
}

void text(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer,
       std::vector{Glib::TextDescription(L"Abg", XY<double>(6, 18), Glib::FontDesc("DejaVu Sans", 20, 0), kInk)});
}

void alphaRects(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer, std::vector{Glib::AlphaRectDescription(Box<double>(6, 6, 40, 34), kRed, 0.8),
                             Glib::AlphaRectDescription(Box<double>(24, 16, 58, 42), kBlue, 0.45)});
}

void bezierCurves(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer, std::vector{Glib::BezierCurveDescription(XY<double>(6, 8), XY<double>(20, 60), XY<double>(44, -12),
                                                          XY<double>(58, 40), 3, kBlue),
                             Glib::BezierCurveDescription(XY<double>(6, 40), XY<double>(30, 40), XY<double>(34, 8),
                                                          XY<double>(58, 8), 1.5, kRed)});
}

void images(iGraphicPrimitivesRenderer& renderer) {
  Zo::Image::Surface const picture = checkerboard();
  Glib::ImageDescription faded(picture, Box<double>(40, 24, 56, 40), 0.5);
  draw(renderer, std::vector{Glib::ImageDescription(picture, Box<double>(6, 8, 38, 40)),
                             Glib::ImageDescription(picture, XY<double>(46, 10)), faded});
}

void imagesEx(iGraphicPrimitivesRenderer& renderer) {
  Zo::Image::Surface const picture = checkerboard();
  draw(renderer, std::vector{Glib::ImageDescriptionEx(picture, Glib::TopDownRect(0, 0, 4, 4), Box<double>(6, 8, 38, 40),
                                                      Glib::eImageFilter::Bilinear),
                             Glib::ImageDescriptionEx(picture, Glib::TopDownRect(0, 0, 2, 2),
                                                      Box<double>(42, 8, 58, 24), Glib::eImageFilter::Nearest)});
}

void roundedRects(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer,
       std::vector{Glib::RoundedRectDescription(Box<double>(4, 4, 40, 30), 8, kBlue, kRed, 2),
                   Glib::RoundedRectDescription(Box<double>(28, 20, 60, 44), 6, Colour::invalid(), kGreen, 3)});
}

void triangleStrips(iGraphicPrimitivesRenderer& renderer) {
  Glib::TriangleStripDescription blended;
  blended.points = {{4, 6}, {14, 40}, {24, 6}, {34, 40}};
  blended.colours = {kRed, kAmber, kGreen, kBlue};
  Glib::TriangleStripDescription flat;
  flat.points = {{38, 6}, {38, 30}, {60, 12}, {60, 42}};
  flat.colours = {kInk};
  draw(renderer, std::vector{blended, flat});
}

void triangleFans(iGraphicPrimitivesRenderer& renderer) {
  Glib::TriangleFanDescription fan;
  fan.points = {{32, 24}, {52, 24}, {42, 41}, {22, 41}, {12, 24}, {22, 7}, {42, 7}, {52, 24}};
  fan.colours = {Colour(1, 1, 1), kRed, kAmber, kGreen, kBlue, kInk, kRed, kRed};
  draw(renderer, std::vector{fan});
}

void lineStrips(iGraphicPrimitivesRenderer& renderer) {
  Glib::LineStripDescription zigzag;
  zigzag.points = {{6, 8}, {18, 40}, {30, 8}, {42, 40}, {58, 12}};
  zigzag.colours = {kRed, kGreen, kBlue, kInk};
  zigzag.width = 3.0;
  Glib::LineStripDescription flat;
  flat.points = {{6, 44}, {58, 44}, {58, 30}};
  flat.colours = {kAmber};
  flat.width = 2.0;
  draw(renderer, std::vector{zigzag, flat});
}

void shaderRects(iGraphicPrimitivesRenderer& renderer) {
  draw(renderer, std::vector{Glib::ShaderRectDescription(Box<double>(4, 4, 60, 44), kRed, kGreen, kBlue, kAmber)});
}

} // namespace

std::vector<Sample> const& all() {
  static std::vector<Sample> const samples = {
      {"rect", rects},
      {"ellipse", ellipses},
      {"line", lines},
      {"text", text},
      {"alpha_rect", alphaRects},
      {"bezier_curve", bezierCurves},
      {"image", images},
      {"image_ex", imagesEx},
      {"rounded_rect", roundedRects},
      {"triangle_strip", triangleStrips},
      {"triangle_fan", triangleFans},
      {"line_strip", lineStrips},
      {"shader_rect", shaderRects},
  };
  return samples;
}

Zo::Image::Surface blankPicture() {
  Zo::Image::Surface picture(kSize.x, kSize.y);
  picture.fill(Colour(1, 1, 1));
  return picture;
}

} // namespace PrimitiveSamples
