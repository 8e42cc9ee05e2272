#include <zowidgets/colour/EyeDropperCursorCapturer.h>
#include <zowidgets/colour/EyeDropperSampling.h>
#include <zowidgets/colour/EyeDropperScreenCover.h>
#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <algorithm>

CursorCapturer::CursorCapturer(InitArgs const& args) : ImageButton(args) {}

CursorCapturer::~CursorCapturer() { disableCapture(); }

int CursorCapturer::lensSide() { return UifStd::getRowHeight() * 6 - UifStd::getWidgetGap() * 2; }

XY<int> CursorCapturer::lensPositionFor(XY<int> mouse, Zo::Box<double> const& keepClear) {
  int const side = lensSide();
  int const gap = UifStd::getRowHeight() * 2 / 3;
  XY<int> at = mouse + XY<int>(gap, -side);
  if (!keepClear.intersect(Zo::Box<double>(at.x, at.y, at.x + side, at.y + side)).empty())
    at = mouse + XY<int>(gap, gap);
  return GlobManager::getSafePosForGlob(nullptr, XY<int>(side, side), at);
}

MagnifyTool* CursorCapturer::getMagnifier() const { return static_cast<MagnifyTool*>(magnifier_.get()); }

void CursorCapturer::enableCapture() {
  if (capturing_)
    return;
  interceptStamp_ = getEventInterceptStack().push(this, EventInterceptStack::kMouseAndKeys);
  if (!interceptStamp_.valid()) {
    LogBoth(kEnableFailure);
    return;
  }
  capturing_ = true;
  glib_enableMouseContextLogic(false);
  ZoTooltipsEnable(false);
  glib_setCursor(kCaptureCursor);
  guards_.push_back(Glib::addMouseListener(Zo::Ptr<iCallbackBase<int, Event>>(
      new MethodCallback<CursorCapturer, Event, int>(this, &CursorCapturer::handleGlobalMouseEvent))));

  Drawable::Suspender holdRedraws;
  cover_ = GlobHandle(new EyeDropperScreenCover(kCaptureCursor));
  int const side = lensSide();
  Glob::setupRootPos(nullptr, lensPositionFor(glib_getMousePos()));
  auto* lens =
      new MagnifyTool(MagnifyTool::InitArgs(GlobCreationInfo(XY<int>(side, side)), MagnifyTool::kLens, kLensLevel));
  GlobManager::realize(lens);
  magnifier_ = GlobHandle(lens);
}

void CursorCapturer::disableCapture() {
  if (!capturing_)
    return;
  // An entry someone else took away leaves the capture on, as a sign that
  // the stack was disturbed; the rest is given back all the same.
  if (getEventInterceptStack().pop(interceptStamp_))
    capturing_ = false;
  else
    LogBoth(kDisableFailure);
  interceptStamp_ = IdStamp::null();
  guards_.clear();
  glib_enableMouseContextLogic(true);
  ZoTooltipsEnable(true);
  glib_setCursor(kCursorDefault);
  areaStart_ = XY<double>(-1.0, -1.0);
  for (GlobHandle* window : {&magnifier_, &cover_}) {
    if (Glob* shown = window->get())
      delete shown;
    window->clear();
  }
}

bool CursorCapturer::cursorOverButton(int x, int y) const {
  return x >= getX() && x < getX() + width() && y >= getY() && y < getY() + height();
}

Zo::Box<double> CursorCapturer::getAreaToSample() const {
  XY<int> const mouse = glib_getMousePos();
  XY<double> const start = areaStart_.x < 0.0 ? XY<double>(mouse.x, mouse.y) : areaStart_;
  return Zo::Box<double>(std::min<double>(start.x, mouse.x), std::min<double>(start.y, mouse.y),
                         std::max<double>(start.x, mouse.x) + 1.0, std::max<double>(start.y, mouse.y) + 1.0);
}

int CursorCapturer::handleGlobalMouseEvent(Event const& event) {
  if (MagnifyTool* lens = getMagnifier()) {
    bool const areaStarted = dropperStyle_ == kAreaStyle && areaStart_.x >= 0.0;
    Zo::Box<double> const area = areaStarted ? getAreaToSample() : Zo::Box<double>();
    if (Canvas* canvas = lens->canvas())
      canvas->move(lensPositionFor(event.screenPosition, area));
    lens->setHighlight(area);
  }
  glib_setCursor(kCaptureCursor);
  return 0;
}

void CursorCapturer::performAction() {
  setState(1);
  enableCapture();
}

// While capturing, the mouse comes through intercept() instead.
int CursorCapturer::react(Event const& event) {
  bool const press = event.type == Event::kMouseDown;
  bool const release = event.type == Event::kMouseUp;
  if (!press && !release)
    return ImageButton::react(event);
  if (!(event.buttons & kMouseLeft))
    return 1;
  if (press)
    setState(1);
  else if (getState() == 1)
    enableCapture();
  return 1;
}

int CursorCapturer::intercept(Event const& event) {
  if (!capturing_)
    return 0;
  if (event.isMouse())
    return reactWhileCapturing(event);
  if (event.type == Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyEscape) {
    setState(0);
    disableCapture();
    return 1;
  }
  return 0;
}

// Every mouse event belongs to the dropper while it captures.
int CursorCapturer::reactWhileCapturing(Event const& event) {
  bool const press = event.type == Event::kMouseDown;
  bool const release = event.type == Event::kMouseUp;
  if ((!press && !release) || !(event.buttons & kMouseLeft))
    return 1;
  XY<int> const inParent = event.position + getPosition();
  bool const overButton = cursorOverButton(inParent.x, inParent.y);
  if (press) {
    if (overButton)
      return 1;
    if (dropperStyle_ == kAreaStyle) {
      areaStart_ = XY<double>(event.screenPosition.x, event.screenPosition.y);
      if (MagnifyTool* lens = getMagnifier())
        lens->setHighlight(getAreaToSample());
    } else {
      evaluatePixelAndNotify(event.screenPosition.x, event.screenPosition.y);
    }
    return 1;
  }
  // The lens keeps clear of the area, so it is never part of the sample.
  if (dropperStyle_ == kAreaStyle && !overButton && areaStart_.x >= 0.0)
    sendSample(getAreaToSample());
  setState(0);
  disableCapture();
  return 1;
}

void CursorCapturer::sendSample(Zo::Box<double> const& area) {
  if (sampleMode_ == kSampleRange) {
    range_ = ColEyeDropBase::getPixelRange(area);
    Glob::sendMsg(parent(), ColEyeDropBase::kMessagePrefix, this);
  } else {
    Glob::sendMsg(parent(), ColEyeDropBase::pixelToMsg(ColEyeDropBase::getPixelColour(area)), this);
  }
}
