#include <zowidgets/host/widgets/panels/TitleGlob.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {
int legendWidthIn(UIString const& legend, Glib::FontDesc const& font) {
  if (legend.empty())
    return 0;
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(legend.getString(), font);
  return static_cast<int>(std::ceil(bounds.width())) + UifStd::getWidgetGap();
}
} // namespace

TitleGlob::TitleGlob(InitArgs const& args) : Glob(args), legend_(args.legend), font_(args.font) {}

void TitleGlob::setChildGlob(Glob* child) {
  if (child && child->parent() != this)
    addChild(child, RightCentre(0, 0, 2));
  child_ = child;
  invalidate();
}

Palette TitleGlob::getWidgetPalette() const { return makeChildPalette(getPalette(), kChildPanel); }

void TitleGlob::setLegend(UIString const& legend) {
  legend_ = legend;
  invalidate();
}

Glib::FontDesc TitleGlob::getFont() const { return font_ == Glib::FontDesc() ? UifStd::getFont() : font_; }

int TitleGlob::legendWidth() const { return legendWidthIn(legend_, getFont()); }

int TitleGlob::calcLegendWidth(UIString const& legend) { return legendWidthIn(legend, UifStd::getFont()); }

void TitleGlob::setActive(bool active, eRedrawFlag redraw) {
  if (Glob* child = getChildGlob())
    child->setActive(active, kNoRedraw);
  Glob::setActive(active, redraw);
}

void TitleGlob::resize(double newWidth, double newHeight) {
  int const widthChange = static_cast<int>(newWidth) - width();
  Glob* const child = getChildGlob();
  if (child && resizeBehaviour_ == kChildTakesChange && widthChange != 0)
    child->resize(std::max(child->width() + widthChange, 0), child->height());
  Glob::resize(newWidth, newHeight);
}

void TitleGlob::removeWidget(Glob* child) {
  if (child == child_)
    child_ = nullptr;
  Glob::removeWidget(child);
}

void TitleGlob::draw(CanvasRenderer& renderer) {
  if (legend_.empty())
    return;
  Glob const* const child = getChildGlob();
  int const right = child && child->isVisible() ? child->getX() : width();
  Zo::Box<double> const area(getBorder().left(), 0, std::max(right - UifStd::getWidgetGap(), 0), height());
  Glib::TextDescription text(legend_.getString(), area, getFont(),
                             isActive() ? getPalette().text() : getPalette().text(-10));
  // A legend longer than its room ends in an ellipsis rather than a cut.
  text.ellipsis = true;
  renderer.renderPrimitive(text);
}
