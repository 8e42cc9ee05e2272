#include <zowidgets/editor/RibbonWidget.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

constexpr int kLabelResource = 13597;

void fillRow(CanvasRenderer& renderer, int x0, int x1, int yTop, Colour const& colour) {
  if (x1 > x0)
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(x0, yTop - 1, x1, yTop), colour));
}

// A square of half a row height, centred in the box.
Zo::Box<double> centredSquare(Zo::Box<int> const& box) {
  double const side = UifStd::getRowHeight() / 2;
  double const x = box.x0 + (box.width() - side) / 2.0;
  double const y = box.y0 + (box.height() - side) / 2.0;
  return Zo::Box<double>(x, y, x + side, y + side);
}

} // namespace

RibbonWidget::RibbonWidget(InitArgs const& args) : Glob(args), colour_(args.colour), selected_(args.selected) {}

void RibbonWidget::setColour(Colour const& colour) {
  colour_ = colour;
  invalidate();
}

void RibbonWidget::setSelected(bool selected) {
  if (selected == selected_)
    return;
  selected_ = selected;
  invalidate();
}

GenericParam::ChoiceParam const& RibbonWidget::registerUIThemeParams() {
  static GenericParam::ChoiceParam const param(UIString(kLabelResource), kThemeKey, UIString(), kRibbon,
                                               {
                                                   {UIString(13598), UIString(), kSquare, true},
                                                   {UIString(13599), UIString(), kRibbon, true},
                                                   {UIString(13731), UIString(), kDot, true},
                                               });
  UifStd::registerThemeParam(kThemeKey, kRibbon);
  return param;
}

int RibbonWidget::getDefaultAppearance() { return UifStd::getTheme().getInt(kThemeKey, kRibbon); }

XY<int> RibbonWidget::calcRibbonSize(unsigned short h) {
  int const height = getDefaultAppearance() == kRibbon ? h * 5 / 6 : h;
  return XY<int>(h / 2, height);
}

XY<int> RibbonWidget::calcRibbonSize(XY<int> const& area) {
  XY<int> size(3 * UifStd::getWidgetGap(), area.y);
  if (5 * UifStd::getRowHeight() > area.x)
    size = XY<int>(size.x / 2, size.y / 2);
  return size;
}

Zo::Box<int> RibbonWidget::calcRibbonArea(Zo::Box<int> const& box, unsigned short inset) {
  XY<int> const size = calcRibbonSize(box.getDimensions());
  int const left = box.x0 + inset + size.x / 3;
  int const top = box.y1 - inset;
  return Zo::Box<int>(left, top - size.y, left + size.x, top);
}

void RibbonWidget::draw(CanvasRenderer& renderer, Zo::Box<int> const& box, Colour const& colour, bool selected) {
  int const W = box.width(), H = box.height();
  if (W <= 0 || H <= 0)
    return;
  Colour const c0 = scale(colour, 0.7);
  switch (getDefaultAppearance()) {
  case kSquare:
    Glib::drawRoundedRect(renderer, centredSquare(box), Colour(0.1, 0.1, 0.1), colour, 2.0);
    break;
  case kDot:
    renderer.renderPrimitive(
        Glib::EllipseDescription::inBox(centredSquare(box), 1.0, Colour::mix(Colour(), colour, 0.2), colour));
    break;
  default: { // kRibbon, and any value the theme should not hold
    int const R = std::min(H, UifStd::getRowHeight());
    int const tail = W / 2;
    int const top = box.y1;
    auto shade = [&](int i) { return Colour::mix(c0, colour, float(i) / float(R)); };
    int i = 0;
    for (; i < R - tail; ++i)
      fillRow(renderer, box.x0, box.x1, top - i, shade(i));
    // The swallow tail: a notch in the middle that widens by a pixel on each
    // side at each row.
    for (int j = 0; j < tail && i < R; ++j, ++i) {
      int const side = tail - j;
      fillRow(renderer, box.x0, box.x0 + side, top - i, shade(i));
      fillRow(renderer, box.x1 - side, box.x1, top - i, shade(i));
    }
    if (selected)
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(box.x0, top - 3, box.x1, top - 1),
                                                     Colour::mix(Colour(1.0, 1.0, 1.0), colour, 0.8)));
    break;
  }
  }
}

void RibbonWidget::drawBackground(CanvasRenderer& renderer) {
  draw(renderer, Zo::Box<int>(0, 0, width(), height()), colour_, selected_);
}
