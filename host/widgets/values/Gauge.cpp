#include <zowidgets/host/widgets/values/Gauge.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {
// How much of the bar's own colour an inactive gauge keeps.
constexpr double kInactiveBarShare = 0.35;

// Of two colours, the one that stands out more against `ground`.
Colour moreContrasting(Colour const& ground, Colour const& first, Colour const& second) {
  double const lightness = Palette::luminance(ground);
  return std::abs(Palette::luminance(first) - lightness) >= std::abs(Palette::luminance(second) - lightness) ? first
                                                                                                             : second;
}
} // namespace

Gauge::Look Gauge::Look::make(Palette const& palette, int height, bool active, Colour const& bar,
                              Colour const& background, Colour const& text) {
  Colour const backgroundShown = background.use() ? background : palette.childWindow();
  Colour const barOwn = bar.use() ? bar : palette.subheadingText();
  Colour const textOwn = text.use() ? text : palette.text();
  Colour const barShown = active ? barOwn : Colour::mix(barOwn, backgroundShown, kInactiveBarShare);
  Colour const textShown = active ? textOwn : Colour::mix(textOwn, backgroundShown, kInactiveBarShare);
  return Look{backgroundShown,
              barShown,
              textShown,
              moreContrasting(barShown, textShown, palette.window()),
              std::min(UifStd::getIndentWidth(), height / 2) * 1.0,
              UifStd::getWidgetGap(),
              height < UifStd::getRowHeight() ? UifStd::getSubscriptFont() : UifStd::getFont()};
}

Gauge::Gauge(InitArgs const& args)
    : Glob(args), measure_(0.0, 1.0, args.measure), bar_(args.barColour), background_(args.backgroundColour),
      text_(args.textColour), label_(args.label) {}

Gauge::Look Gauge::look() const { return Look::make(getPalette(), height(), isActive(), bar_, background_, text_); }

void Gauge::repaintIf(eRedrawFlag redraw) {
  if (redraw == kRedrawNow)
    invalidate();
}

void Gauge::setMeasure(double fraction, eRedrawFlag redraw) {
  if (measure_.setValue(fraction))
    repaintIf(redraw);
}

void Gauge::setCols(Colour const& bar, Colour const& background, eRedrawFlag redraw) {
  bar_ = bar;
  background_ = background;
  repaintIf(redraw);
}

Colour Gauge::getBarColour() const { return look().bar; }
Colour Gauge::getBackgroundColour() const { return look().background; }

void Gauge::setLabel(UIString const& label, eRedrawFlag redraw) {
  if (label == label_)
    return;
  label_ = label;
  repaintIf(redraw);
}

void Gauge::setTextColour(Colour const& colour, eRedrawFlag redraw) {
  text_ = colour;
  repaintIf(redraw);
}

Colour Gauge::getTextColour() const { return look().text; }

int Gauge::filledWidthFor(double fraction) const {
  return static_cast<int>(std::lround(measure_.fractionOf(fraction) * width()));
}

bool Gauge::isShowingValue(double fraction) const { return filledWidthFor(fraction) == filledWidth(); }

void Gauge::draw(CanvasRenderer& renderer) {
  Look const look = this->look();
  Zo::Box<int> const whole(0, 0, width(), height());
  renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(whole), look.radius, look.background));
  int const filled = filledWidth();
  if (filled > 0) {
    Zo::Box<int> const bar(0, 0, filled, height());
    double const radius = std::min(look.radius, filled / 2.0);
    renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(bar), radius, look.bar));
  }
  drawLabel(renderer, look);
}

void Gauge::drawLabel(CanvasRenderer& renderer, Look const& look) {
  if (label_.empty())
    return;
  Zo::Box<double> const box(look.textIndent, 0, width() - look.textIndent, height());
  drawText(renderer, look,
           Glib::TextDescription(label_.getString(), box, look.font, look.text, Glib::eTextAlignment::Centre));
}

void Gauge::drawText(CanvasRenderer& renderer, Look const& look, Glib::TextDescription text) const {
  Zo::Box<int> const kept = renderer.clipBox();
  XY<int> const origin = renderer.origin();
  int const split = filledWidth();
  Zo::Box<int> const overBar(0, 0, split, height());
  Zo::Box<int> const overBackground(split, 0, width(), height());
  for (auto const& [part, colour] : {std::pair{overBar, look.textOnBar}, std::pair{overBackground, look.text}}) {
    Zo::Box<int> const clip = kept.intersect(part.translated(origin));
    if (clip.empty())
      continue;
    renderer.setClipBox(clip);
    text.colour = colour;
    renderer.renderPrimitive(text);
  }
  renderer.setClipBox(kept);
}
