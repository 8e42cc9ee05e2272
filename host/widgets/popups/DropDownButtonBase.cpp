#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/detail/SideAlignment.h>

#include <algorithm>
#include <utility>
#include <vector>

Zo::Box<int> screenBoxOf(Glob const& widget) {
  XY<int> const at = widget.screenPosition();
  return Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height());
}

Zo::Box<int> relativeBox(Glob const& widget, Glob const& other) {
  XY<int> const at = widget.screenPosition();
  Zo::Box<int> const box = screenBoxOf(other);
  return Zo::Box<int>(box.x0 - at.x, box.y0 - at.y, box.x1 - at.x, box.y1 - at.y);
}

eWidgetRelativity sideFacing(Zo::Box<int> const& box, Zo::Box<int> const& other) {
  if (other.y1 <= box.y0)
    return kRelativeBelow;
  if (other.y0 >= box.y1)
    return kRelativeAbove;
  return other.x0 >= box.x1 ? kRelativeRight : kRelativeLeft;
}

void refitButton(Button& button, Button::InitArgs const& args) {
  if (!args.autoResize && args.size.x != 0)
    return;
  button.setAutoResize(true);
  button.setAutoResize(args.autoResize);
}

void drawDropDownChevron(CanvasRenderer& renderer, Zo::Box<int> const& area, Colour const& colour, bool pointsUp) {
  double const half = area.width() / 5.0;
  double const cx = (area.x0 + area.x1) / 2.0 - UifStd::getIndentWidth() / 2.0;
  double const cy = (area.y0 + area.y1) / 2.0;
  double const rise = pointsUp ? -half / 2 : half / 2;
  double const thickness = std::max(1.0, UifStd::getIndentWidth() * 0.75);
  renderer.renderPrimitive(
      Glib::LineDescription(XY<double>(cx - half, cy + rise), XY<double>(cx, cy - rise), thickness, colour));
  renderer.renderPrimitive(
      Glib::LineDescription(XY<double>(cx, cy - rise), XY<double>(cx + half, cy + rise), thickness, colour));
}

void drawOpenFrame(CanvasRenderer& renderer, Zo::Box<int> const& box, int thickness, Colour const& colour,
                   eWidgetRelativity openSide, Zo::Box<int> const& neighbour) {
  int const t = thickness;
  std::vector<Zo::Box<int>> edges{
      Zo::Box<int>(box.x0, box.y0, box.x0 + t, box.y1), Zo::Box<int>(box.x1 - t, box.y0, box.x1, box.y1),
      Zo::Box<int>(box.x0, box.y1 - t, box.x1, box.y1), Zo::Box<int>(box.x0, box.y0, box.x1, box.y0 + t)};
  eWidgetRelativity const sides[] = {kRelativeLeft, kRelativeRight, kRelativeAbove, kRelativeBelow};
  for (int index = 0; index < 4; ++index) {
    Zo::Box<int> const edge = edges[static_cast<std::size_t>(index)];
    if (sides[index] != openSide) {
      renderer.renderPrimitive(Glib::RectDescription(edge, colour));
      continue;
    }
    // The open side keeps the parts that reach past the neighbour.
    bool const across = openSide == kRelativeAbove || openSide == kRelativeBelow;
    int const from = across ? edge.x0 : edge.y0;
    int const to = across ? edge.x1 : edge.y1;
    int const gapFrom = std::clamp(across ? neighbour.x0 : neighbour.y0, from, to);
    int const gapTo = std::clamp(across ? neighbour.x1 : neighbour.y1, from, to);
    for (auto [start, end] : {std::pair(from, gapFrom), std::pair(gapTo, to)})
      if (start < end)
        renderer.renderPrimitive(Glib::RectDescription(
            across ? Zo::Box<int>(start, edge.y0, end, edge.y1) : Zo::Box<int>(edge.x0, start, edge.x1, end), colour));
  }
}

DropDownButtonBase::DropDownButtonBase(Button::InitArgs const& args)
    : Button(args), dropDownBorder_(TipWindowBase::getDefaultBorder()) {
  setLatching(true);
  refitButton(*this, args);
}

DropDownButtonBase::~DropDownButtonBase() {
  if (DropDownHostBase* host = getDropDownHost())
    host->close();
}

void DropDownButtonBase::setDropDownAlignment(eWidgetAlignment alignment, eWidgetRelativity relativity) {
  alignment_ = alignment;
  relativity_ = relativity == kRelativeNone ? kRelativeBelow : relativity;
}

DropDownButtonBase::Placement DropDownButtonBase::calcDropDownPosition(XY<int> const& size) const {
  Zo::Box<int> const button = screenBoxOf(*this);
  XY<int> const screen = screenBackend().screenSize();
  Placement placement;
  placement.relativity = sideWithRoom(button, size, screen, relativity_);
  XY<int> position;
  switch (placement.relativity) {
  case kRelativeAbove:
    position = XY<int>(alongSide(button.x0, button.x1, size.x, alignment_, false), button.y1);
    break;
  case kRelativeLeft:
    position = XY<int>(button.x0 - size.x, alongSide(button.y0, button.y1, size.y, alignment_, true));
    break;
  case kRelativeRight:
    position = XY<int>(button.x1, alongSide(button.y0, button.y1, size.y, alignment_, true));
    break;
  default:
    position = XY<int>(alongSide(button.x0, button.x1, size.x, alignment_, false), button.y0 - size.y);
    break;
  }
  placement.position = GlobManager::getSafePosForGlob(canvas(), size, position);
  return placement;
}

Palette DropDownButtonBase::makeDropDownPalette() const { return makePopupPalette(getPalette()); }

void DropDownButtonBase::switchState(int state, bool redraw) { setState(state, redraw ? kRedrawNow : kNoRedraw); }

void DropDownButtonBase::removeDropDown() {
  if (DropDownHostBase* host = getDropDownHost())
    host->close();
  host_.clear();
  invalidate();
}

DropDownHostBase* DropDownButtonBase::getDropDownHost() const {
  auto* host = static_cast<DropDownHostBase*>(host_.get());
  return host && !host->isClosing() ? host : nullptr;
}

void DropDownButtonBase::adoptDropDown(DropDownHostBase* host) {
  host_ = GlobHandle(host);
  invalidate();
}

void DropDownButtonBase::handleDropDownEvent(DropDownHostBase::Event const& event) {
  if (event.hostStamp != host_.stamp()) {
    if (event.kind == DropDownHostBase::Event::kClosed && event.hostStamp == previousHost_.stamp())
      previousHost_.clear();
    return;
  }
  if (event.kind == DropDownHostBase::Event::kDetached)
    previousHost_ = host_;
  host_.clear();
  setState(0);
  invalidate();
}

void DropDownButtonBase::performAction() { switchState(getState(), true); }

Zo::Box<int> DropDownButtonBase::labelBox() const {
  return Zo::Box<int>(0, 0, std::max(0, width() - getRevealIndicatorWidth()), height());
}

void DropDownButtonBase::draw(CanvasRenderer& renderer) {
  Button::draw(renderer);
  DropDownHostBase const* host = getDropDownHost();
  drawDropDownChevron(renderer, Zo::Box<int>(labelBox().x1, 0, width(), height()), labelColour(),
                      host && host->getRelativeDirection() == kRelativeAbove);
}

void DropDownButtonBase::drawBorder(CanvasRenderer& renderer) {
  Button::drawBorder(renderer);
  DropDownHostBase const* host = getDropDownHost();
  if (getState() == 0 || !host)
    return;
  drawOpenFrame(renderer, Zo::Box<int>(0, 0, width(), height()), UifStd::getIndentWidth(),
                scale(getPalette().selection(), 1.4), host->getRelativeDirection(), relativeBox(*this, *host));
}
