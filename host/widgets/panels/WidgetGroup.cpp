#include <zowidgets/host/widgets/panels/WidgetGroup.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

// --- WidgetGroup -------------------------------------------------------------

WidgetGroup::WidgetGroup(InitArgs const& args) : Glob(args), title_(args.title), separatorStyle_(args.separatorStyle) {}

void WidgetGroup::setTitle(UIString const& title) {
  title_ = title;
  layoutChildren();
  invalidate();
}

void WidgetGroup::setSeparatorStyle(int style) {
  separatorStyle_ = style;
  invalidate();
}

int WidgetGroup::titleBandHeight() { return UifStd::getRowHeight(); }

int WidgetGroup::childXOffset() { return 2 * UifStd::getWidgetGap(); }

int WidgetGroup::calcHeightForRows(int rows, int rowHeight, int rowGap, int titled) {
  int const gap = UifStd::getWidgetGap();
  int const content = rows > 0 ? rows * rowHeight + (rows - 1) * rowGap : 0;
  return content + gap + (titled != 0 ? titleBandHeight() : gap);
}

Zo::Box<int> WidgetGroup::getUserArea() const {
  Zo::Box<int> const inside = Glob::getUserArea();
  int const gap = UifStd::getWidgetGap();
  int const top = hasTitleBand() ? titleBandHeight() : gap;
  return Zo::Box<int>(inside.x0 + gap, inside.y0 + gap, std::max(inside.x1 - gap, inside.x0 + gap),
                      std::max(inside.y1 - top, inside.y0 + gap));
}

Zo::Box<int> WidgetGroup::titleBand() const {
  Zo::Box<int> const inside = Glob::getUserArea();
  return Zo::Box<int>(inside.x0, std::max(inside.y1 - titleBandHeight(), inside.y0), inside.x1, inside.y1);
}

Colour WidgetGroup::titleColour() const { return isActive() ? getPalette().headingText() : getPalette().text(-10); }

Glib::FontDesc WidgetGroup::titleFont() const { return UifStd::getSubheadingFont(); }

int WidgetGroup::titleIndent() const { return 2 * UifStd::getWidgetGap(); }

void WidgetGroup::draw(CanvasRenderer& renderer) { drawTitleAndSeparator(renderer, true); }

void WidgetGroup::drawTitleAndSeparator(CanvasRenderer& renderer, bool framed) {
  if (!hasTitleBand())
    return;
  Palette const& palette = getPalette();
  Zo::Box<int> const band = titleBand();
  int const gap = UifStd::getWidgetGap();
  int const midY = band.y0 + band.height() / 2;
  int const textStart = band.x0 + titleIndent();
  LightweightString<wchar_t> const text = title_.getString();
  int const textEnd =
      title_.empty()
          ? textStart
          : textStart + static_cast<int>(std::ceil(Glib::TextDescription::calcBounds(text, titleFont()).width()));
  Colour const lineColour = palette.window(4);

  if (separatorStyle_ == kSeparatorFrame && framed) {
    Zo::Box<int> const inside = Glob::getUserArea();
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(Glib::toDoubleBox(Zo::Box<int>(inside.x0, inside.y0, inside.x1, midY + 1)), gap,
                                     Colour::invalid(), lineColour));
    // The title breaks the frame's top edge.
    if (!title_.empty())
      renderer.renderPrimitive(
          Glib::RectDescription(Zo::Box<int>(textStart - gap, midY, textEnd + gap, midY + 1), palette.window()));
  } else if (separatorStyle_ != kSeparatorNone) {
    int const ruleStart = title_.empty() ? textStart : textEnd + gap;
    if (ruleStart < band.x1 - gap)
      renderer.renderPrimitive(
          Glib::RectDescription(Zo::Box<int>(ruleStart, midY, band.x1 - gap, midY + 1), lineColour));
  }
  if (!title_.empty())
    renderer.renderPrimitive(Glib::TextDescription(
        text, Zo::Box<double>(textStart, band.y0, std::max(textEnd, textStart), band.y1), titleFont(), titleColour()));
}

// --- WidgetGroupEx -----------------------------------------------------------

WidgetGroupEx::WidgetGroupEx(InitArgs const& args)
    : WidgetGroup(args), textColour_(args.textColour), titleFont_(args.titleFont) {}

void WidgetGroupEx::setTextColour(Colour const& colour) {
  textColour_ = colour;
  invalidate();
}

void WidgetGroupEx::setTitleFont(Glib::FontDesc const& font) {
  titleFont_ = font;
  invalidate();
}

Colour WidgetGroupEx::titleColour() const {
  if (textColour_.use() && isActive())
    return textColour_;
  return WidgetGroup::titleColour();
}

Glib::FontDesc WidgetGroupEx::titleFont() const {
  return titleFont_ == Glib::FontDesc() ? WidgetGroup::titleFont() : titleFont_;
}

// --- WidgetGroup2 ------------------------------------------------------------

namespace {
Palette bandPalette(WidgetGroupEx::InitArgs const& args) {
  Palette const base =
      args.palette ? *args.palette : (args.parent ? args.parent->getPalette() : UifStd::getColourScheme());
  return makeWindowPalette(base, base.childWindow());
}
} // namespace

WidgetGroup2::WidgetGroup2(InitArgs const& args) : WidgetGroupEx(args) { setPalette(bandPalette(args)); }

void WidgetGroup2::drawBackground(CanvasRenderer& renderer) {
  // The corners outside the rounded band show the parent.
  Colour const outside = parent() ? parent()->getPalette().window() : getPalette().window(2);
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), outside));
  renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(Glob::getUserArea()), UifStd::getWidgetGap(),
                                                        getPalette().window(), getPalette().window(3)));
}

void WidgetGroup2::draw(CanvasRenderer& renderer) { drawTitleAndSeparator(renderer, false); }

Colour WidgetGroup2::titleColour() const {
  if (!isActive() || hasOwnTextColour())
    return WidgetGroupEx::titleColour();
  return getPalette().subheadingText();
}

// --- MinimizableGroup --------------------------------------------------------

MinimizableGroup::MinimizableGroup(InitArgs const& args) : WidgetGroupEx(args), expandedHeight_(args.size.y) {
  setCanBeIt(true);
}

void MinimizableGroup::setMinimized(bool minimized) {
  if (minimized == minimized_)
    return;
  Drawable::Suspender holdRedraws;
  if (minimized) {
    expandedHeight_ = height();
    hiddenByFolding_.clear();
    for (Glob* child : getChildren())
      if (child->isVisible()) {
        hiddenByFolding_.push_back(child);
        child->setVisible(false);
      }
    minimized_ = true;
    Glob::resize(width(), titleBandHeight() + getBorder().top() + getBorder().bottom());
  } else {
    minimized_ = false;
    Glob::resize(width(), expandedHeight_);
    for (Glob* child : hiddenByFolding_)
      if (isChildGlob(child))
        child->setVisible(true);
    hiddenByFolding_.clear();
  }
  invalidate();
  broadcast(MinimizableGroupEvent{minimized ? MinimizableGroupEvent::kFolded : MinimizableGroupEvent::kUnfolded});
}

void MinimizableGroup::resize(double newWidth, double newHeight) {
  if (!minimized_) {
    WidgetGroupEx::resize(newWidth, newHeight);
    return;
  }
  expandedHeight_ = static_cast<int>(newHeight);
  WidgetGroupEx::resize(newWidth, height());
}

int MinimizableGroup::react(Event const& event) {
  if (!isActive())
    return 0;
  if (event.type == Event::kMouseDown && event.buttons == kMouseLeft && titleBand().contains(event.position)) {
    toggle();
    return 1;
  }
  if (event.type == Event::kKeyDown) {
    int const key = event.key & ~kKeyModifierMask;
    if (key == ' ' || key == kKeyReturn) {
      toggle();
      return 1;
    }
  }
  return 0;
}

void MinimizableGroup::handleKbdFocus(bool gained) {
  WidgetGroupEx::handleKbdFocus(gained);
  invalidate(titleBand());
}

int MinimizableGroup::titleIndent() const { return 2 * UifStd::getWidgetGap() + titleBandHeight() / 2; }

void MinimizableGroup::draw(CanvasRenderer& renderer) {
  drawTitleAndSeparator(renderer, !minimized_);
  Zo::Box<int> const band = titleBand();
  double const size = titleBandHeight() / 4.0;
  double const cx = band.x0 + UifStd::getWidgetGap() + titleBandHeight() / 4.0;
  double const cy = band.y0 + band.height() / 2.0;
  Glib::TriangleFanDescription arrow;
  if (minimized_)
    arrow.points = {XY<double>(cx - size / 2, cy - size), XY<double>(cx - size / 2, cy + size),
                    XY<double>(cx + size, cy)};
  else
    arrow.points = {XY<double>(cx - size, cy + size / 2), XY<double>(cx + size, cy + size / 2),
                    XY<double>(cx, cy - size)};
  arrow.colours = {titleColour()};
  renderer.renderPrimitive(arrow);
  if (hasKbdFocus()) {
    Glib::RectDescription focusRing(band, Colour::invalid());
    focusRing.outline = getPalette().selection();
    renderer.renderPrimitive(focusRing);
  }
}
