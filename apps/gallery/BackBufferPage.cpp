// The thirteen drawing primitives drawn through the back buffer's renderer:
// a picture drawn off screen, as a video window's back buffer is, by the
// pass-through renderer over the cairo renderer, then shown. Rounded boxes,
// triangle strips and fans and line strips take the base class's way, built
// from the other primitives.
#include "PageLayout.h"

#include <zowidgets/editor/VideoWindowBackBuffer.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <array>
#include <functional>

namespace {

using Zo::Box;

// One cell's drawing, 64 by 40 units (bottom-up) from `origin` at `scale`
// pixels a unit.
struct Cell {
  wchar_t const* name;
  std::function<void(iGraphicPrimitivesRenderer&, XY<double> origin, double scale)> draw;
};

Colour const kRed(0.85, 0.2, 0.15);
Colour const kGreen(0.2, 0.7, 0.3);
Colour const kBlue(0.25, 0.45, 0.9);
Colour const kAmber(0.95, 0.7, 0.15);
Colour const kInk(0.9, 0.9, 0.92);

// Places cell units on the picture.
struct Units {
  XY<double> origin;
  double scale;
  XY<double> at(double x, double y) const { return XY<double>(origin.x + x * scale, origin.y + y * scale); }
  Box<double> box(double x0, double y0, double x1, double y1) const {
    return Box<double>(origin.x + x0 * scale, origin.y + y0 * scale, origin.x + x1 * scale, origin.y + y1 * scale);
  }
  double length(double value) const { return value * scale; }
};

template <class Description> void renderOne(iGraphicPrimitivesRenderer& renderer, Description const& description) {
  renderer.renderMulti(&description, 1);
}

Zo::Image::Surface checkerboard() {
  Zo::Image::Surface image(4, 4);
  for (int row = 0; row < 4; ++row)
    for (int x = 0; x < 4; ++x)
      image.setPixel(x, row, (x + row) % 2 ? 0xFFE0A458u : 0xFF2F5A8Cu);
  return image;
}

std::array<Cell, 13> const& cells() {
  static std::array<Cell, 13> const all{{
      {L"Rect",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         Glib::RectDescription framed(u.box(8, 6, 40, 30), kBlue);
         framed.outline = kRed;
         framed.outlineWidth = u.length(2);
         renderOne(r, framed);
         renderOne(r, Glib::RectDescription(u.box(34, 14, 56, 36), kGreen));
       }},
      {L"Ellipse",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::EllipseDescription::disc(u.at(18, 20), u.length(12), kBlue));
         Glib::EllipseDescription slice = Glib::EllipseDescription::disc(u.at(46, 20), u.length(12), kGreen);
         slice.startAngle = 30.0;
         slice.endAngle = 300.0;
         renderOne(r, slice);
       }},
      {L"Line",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::LineDescription(u.at(8, 34), u.at(56, 34), u.length(1), kInk));
         renderOne(r, Glib::LineDescription(u.at(8, 6), u.at(56, 28), u.length(3), kBlue));
       }},
      {L"Text",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::TextDescription(L"Abg", u.box(0, 0, 64, 40), UifStd::getTitleFont(), kInk,
                                            Glib::eTextAlignment::Centre));
       }},
      {L"AlphaRect",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::AlphaRectDescription(u.box(8, 6, 40, 30), kRed, 0.8));
         renderOne(r, Glib::AlphaRectDescription(u.box(24, 12, 56, 36), kBlue, 0.5));
       }},
      {L"BezierCurve",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::BezierCurveDescription(u.at(6, 6), u.at(20, 56), u.at(44, -16), u.at(58, 34), u.length(3),
                                                   kAmber));
       }},
      {L"Image",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::ImageDescription(checkerboard(), u.box(18, 4, 50, 36)));
       }},
      {L"ImageEx",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::ImageDescriptionEx(checkerboard(), Glib::TopDownRect(0, 0, 4, 4), u.box(18, 4, 50, 36),
                                               Glib::eImageFilter::Bilinear));
       }},
      {L"RoundedRect",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::RoundedRectDescription(u.box(8, 6, 56, 34), u.length(8), kBlue, kAmber, u.length(2)));
       }},
      {L"TriangleStrip",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         Glib::TriangleStripDescription strip;
         strip.points = {u.at(8, 6), u.at(20, 34), u.at(32, 6), u.at(44, 34), u.at(56, 6)};
         strip.colours = {kRed, kAmber, kGreen, kBlue, kRed};
         renderOne(r, strip);
       }},
      {L"TriangleFan",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         Glib::TriangleFanDescription fan;
         fan.points = {u.at(32, 20), u.at(48, 20), u.at(40, 34), u.at(24, 34),
                       u.at(16, 20), u.at(24, 6),  u.at(40, 6),  u.at(48, 20)};
         fan.colours = {Colour(1, 1, 1), kRed, kAmber, kGreen, kBlue, kRed, kAmber, kRed};
         renderOne(r, fan);
       }},
      {L"LineStrip",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         Glib::LineStripDescription zigzag;
         zigzag.points = {u.at(8, 8), u.at(20, 34), u.at(32, 8), u.at(44, 34), u.at(56, 8)};
         zigzag.colours = {kRed, kGreen, kBlue, kAmber};
         zigzag.width = u.length(3);
         renderOne(r, zigzag);
       }},
      {L"ShaderRect",
       [](auto& r, XY<double> o, double s) {
         Units const u{o, s};
         renderOne(r, Glib::ShaderRectDescription(u.box(8, 4, 56, 36), kRed, kGreen, kBlue, kAmber));
       }},
  }};
  return all;
}

constexpr int kColumns = 5;
constexpr int kRows = 3;
// A drawing takes 64 by 40 units in the middle of its cell.
constexpr double kDrawingWidth = 64.0;
constexpr double kCellWidth = 80.0;
constexpr double kCellHeight = 40.0;
// Under each drawing, its name.
constexpr double kLabelHeight = 14.0;

// Draws the cells into its back buffer through the pass-through renderer
// whenever it is drawn, and shows the buffer.
class BackBufferSheet : public Glob {
public:
  static XY<int> calcSize() {
    double const scale = UifStd::getScale();
    return XY<int>(static_cast<int>(kColumns * kCellWidth * scale),
                   static_cast<int>(kRows * (kCellHeight + kLabelHeight) * scale));
  }
  BackBufferSheet() : Glob(GlobCreationInfo(calcSize())) {}
  char const* idstring() const override { return "BackBufferSheet"; }

protected:
  void drawBackground(CanvasRenderer& canvas) override {
    Zo::Image::Surface buffer(width(), height());
    buffer.fill(Colour(0.12, 0.13, 0.15));
    iVideoWindowBackBuffer::Renderer renderer(Zo::make<CanvasRenderer>(buffer));
    double const scale = UifStd::getScale();
    for (std::size_t i = 0; i < cells().size(); ++i) {
      int const column = static_cast<int>(i) % kColumns, row = static_cast<int>(i) / kColumns;
      double const left = column * kCellWidth * scale;
      double const top = height() - row * (kCellHeight + kLabelHeight) * scale;
      double const labelBottom = top - kLabelHeight * scale;
      double const inset = (kCellWidth - kDrawingWidth) / 2.0 * scale;
      cells()[i].draw(renderer, XY<double>(left + inset, labelBottom - kCellHeight * scale), scale);
      renderOne(renderer,
                Glib::TextDescription(cells()[i].name, Box<double>(left, labelBottom, left + kCellWidth * scale, top),
                                      UifStd::getSubscriptFont(), kInk, Glib::eTextAlignment::Centre));
    }
    canvas.renderPrimitive(Glib::ImageDescription(buffer, XY<double>(0, 0)));
  }
};

Glob* buildBackBufferPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const sheet = BackBufferSheet::calcSize();
  XY<int> const userArea(sheet.x + 2 * m.gap, sheet.y + m.row * 3 + 3 * m.gap);
  StandardPanel* panel = openPageWindow(context, userArea, L"Back-buffer renderer");
  Glob* drawn = panel->addChild(new BackBufferSheet, Glob::UserTopLeft(m.gap, m.gap));
  TextLabel::InitArgs noteArgs(XY<int>(sheet.x, m.row * 3));
  noteArgs.text = L"Drawn off screen through the pass-through renderer. Rounded rectangles, triangle strips and fans "
                  L"and line strips are built by the base class from the other primitives.";
  noteArgs.wordWrap = true;
  panel->createWidget<TextLabel>(noteArgs, Glob::Below(m.gap, drawn));
  return panel;
}

PageRegistrar const backBufferPage{"backbuffer", "Back-buffer renderer",
                                   "The thirteen drawing primitives drawn off screen through the video window back "
                                   "buffer's pass-through renderer, and shown",
                                   buildBackBufferPage};

} // namespace
