#include <zowidgets/diagnostics/GlobProbe.h>
#include <zowidgets/diagnostics/InfoWidget.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned kStandardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;

Border inspectorBorder() { return Border::forStyle(Border::kMenuBorder); }

int titleWidth() {
  Glib::TextDescription const title(GlobInspector::kTitleText, XY<double>(0, 0), UifStd::getTitleFont(), Colour());
  // The close box stands at the bar's right end, beside the text.
  return static_cast<int>(std::ceil(title.calcBounds().width())) + 3 * UifStd::getWidgetGap() + UifStd::getRowHeight();
}

} // namespace

GlobInspector* GlobInspector::create() {
  Drawable::Suspender holdRedraws;
  XY<int> const size = calcSizeFor(nullptr);
  // The bottom-left corner is the hot spot: it starts under the pointer.
  Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(nullptr, size, glib_getMousePos()));
  auto* inspector = new GlobInspector(InitArgs(GlobCreationInfo(size)));
  GlobManager::realize(inspector);
  return inspector;
}

GlobInspector::GlobInspector(InitArgs const& args) : MessageBase(args) {
  setPersistable(false);
  setResizable(false);
  setHotSpot(XY<int>(0, 0));
  setBorder(inspectorBorder());
  setTitle(UIString(kTitleText), UifStd::getTitleFont(), kNoRedraw);
  addStandardWidgets(kStandardWidgets);
  setInterest(kTimerInterest);
  if (args.target)
    setTarget(args.target);
}

XY<int> GlobInspector::calcSizeFor(Glob* target) {
  int width = titleWidth();
  int height = 0;
  for (Glob* widget = target; widget; widget = widget->parent()) {
    width = std::max(width, InfoWidget::calcWidth(*widget));
    height += InfoWidget::calcHeight() + (height > 0 ? UifStd::getRowGap() : 0);
  }
  return StandardPanel::calcPanelSize(XY<int>(width, height), kStandardWidgets, inspectorBorder());
}

void GlobInspector::setTarget(Glob* target) {
  Drawable::Suspender holdRedraws;
  for (InfoWidget* row : rows_)
    removeWidget(row);
  rows_.clear();
  target_ = GlobHandle(target);
  if (!target_.isLive()) {
    target_.clear();
    invalidate();
    return;
  }
  int const rowWidth = getUserArea().width();
  for (Glob* widget = target; widget; widget = widget->parent()) {
    InfoWidget::InitArgs args(GlobCreationInfo(XY<int>(rowWidth, InfoWidget::calcHeight())));
    args.target = widget;
    WidgetPosition const where = rows_.empty() ? UserTopLeft(0, 0) : Below(UifStd::getRowGap(), rows_.back());
    rows_.push_back(createWidget<InfoWidget>(args, where));
  }
  invalidate();
}

void GlobInspector::fitToTarget() {
  Drawable::Suspender holdRedraws;
  XY<int> const size = calcSizeFor(getTarget());
  resize(size.x, size.y);
  for (InfoWidget* row : rows_)
    row->resize(getUserArea().width(), InfoWidget::calcHeight());
  layoutChildren();
  invalidate();
}

void GlobInspector::inspectUnderHotSpot() {
  XY<int> const spot = screenPosition() + getHotSpot();
  setTarget(Canvas::widgetAtScreenPoint(spot, canvas()));
  fitToTarget();
}

int GlobInspector::react(Event const& event) {
  // Ahead of the title bar, which would take the left button of the chord
  // as the start of a move.
  if (event.type == Event::kMouseDown && mouse_chord_event(event))
    return handleMouseEvent(event);
  return MessageBase::react(event);
}

int GlobInspector::handleMouseEvent(Event const& event) {
  if (event.type != Event::kMouseDown || !mouse_chord_event(event))
    return 0;
  inspectUnderHotSpot();
  return 1;
}

int GlobInspector::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != kTargetGoneMsg)
    return MessageBase::handleMessageEvent(message, sender);
  if (targetHasGone()) {
    setTarget(nullptr);
    fitToTarget();
  }
  return 1;
}

void GlobInspector::handleTimerEvent() {
  // A target in another window dies without this one repainting.
  if (targetHasGone()) {
    setTarget(nullptr);
    fitToTarget();
  }
}

void GlobInspector::draw(CanvasRenderer& renderer) {
  MessageBase::draw(renderer);
  // Emptying is left to the message: the rows are being painted now.
  if (targetHasGone())
    sendMessageWithData(kTargetGoneMsg, this, nullptr);
}

void GlobInspector::drawBorder(CanvasRenderer& renderer) {
  MessageBase::drawBorder(renderer);
  // The hot spot's mark goes over the rows, which reach down to it.
  double const side = UifStd::getRowHeight() / 2.0;
  XY<double> const corner(getHotSpot().x, getHotSpot().y);
  renderer.renderPrimitive(Glib::TriangleFanDescription{
      {corner, XY<double>(corner.x + side, corner.y), XY<double>(corner.x, corner.y + side)},
      {getPalette().selection()}});
}
