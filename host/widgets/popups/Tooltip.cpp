#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

namespace {

struct TooltipState {
  bool enabled = true;
  Glob* resting = nullptr; // the widget under the pointer while the timer runs
  IdStamp restingStamp;
  LightweightString<wchar_t> restingText; // what it says where the pointer rests
  XY<int> pointer;
  Timer rest;
  TooltipWindow* window = nullptr;
};

TooltipState& state() {
  static auto* instance = new TooltipState;
  return *instance;
}

struct Found {
  Glob* owner = nullptr;
  LightweightString<wchar_t> text;
};

// The nearest widget from `widget` up with a tooltip where the pointer is.
Found withTooltip(Glob* widget, XY<int> screen) {
  for (Glob* w = widget; w; w = w->parent())
    if (LightweightString<wchar_t> text = w->getTooltip(screen, false).getString(); !text.empty())
      return Found{w, text};
  return {};
}

void show() {
  TooltipState& s = state();
  if (!s.enabled || !EventHandler::valid(s.resting, s.restingStamp))
    return;
  LightweightString<wchar_t> text = s.resting->getTooltip(s.pointer, false).getString();
  if (text.empty())
    return;
  XY<int> size = TooltipWindow::calcSize(text);
  // Below and to the right of the pointer, clear of the cursor.
  int const offset = UifStd::getRowHeight();
  XY<int> at = GlobManager::getSafePosForGlob(nullptr, size, XY<int>(s.pointer.x, s.pointer.y - offset - size.y));
  auto* window = new TooltipWindow(text, size, at);
  s.window = window;
  GlobManager::realize(window);
}

} // namespace

namespace {
// The input router tells tooltips of every move and press from the start.
[[maybe_unused]] bool const hooked =
    (InputRouter::setHoverHook(InputRouter::HoverHook{&Tooltips::pointerMoved, &Tooltips::dismiss}), true);

GlobCreationInfo tooltipInfo(XY<int> size, XY<int> screenPosition) {
  GlobCreationInfo info(size);
  info.setPalette(makePopupPalette(UifStd::getColourScheme()));
  info.screenPosition = screenPosition;
  return info;
}
} // namespace

TooltipWindow::TooltipWindow(LightweightString<wchar_t> const& text, XY<int> size, XY<int> screenPosition)
    : Glob(tooltipInfo(size, screenPosition)), text_(text) {
  setBorder(Border(1, 1, 0));
}

XY<int> TooltipWindow::calcSize(LightweightString<wchar_t> const& text) {
  Zo::Box<double> bounds = Glib::TextDescription::calcBounds(text, UifStd::getFont());
  int const gap = UifStd::getWidgetGap();
  return XY<int>(static_cast<int>(bounds.width() + 0.999) + 2 * gap, UifStd::getRowHeight());
}

void TooltipWindow::draw(CanvasRenderer& renderer) {
  int const gap = UifStd::getWidgetGap();
  renderer.renderPrimitive(Glib::TextDescription(text_, Zo::Box<double>(gap, 0, width() - gap, height()),
                                                 UifStd::getFont(), getPalette().text()));
}

void Tooltips::pointerMoved(Glob* under, XY<int> screen) {
  TooltipState& s = state();
  s.pointer = screen;
  auto const [owner, text] = withTooltip(under, screen);
  // Within one widget a tip stays while it says the same: parts that say
  // different things (a title bar's buttons) each get their own.
  if (owner == s.resting && text == s.restingText && (owner == nullptr || s.window || s.rest.isActive()))
    return;
  dismiss();
  if (!owner || !s.enabled)
    return;
  s.resting = owner;
  s.restingStamp = owner->handlerStamp();
  s.restingText = text;
  s.rest = Timer::oneShot(kRestMs, &show);
}

void Tooltips::dismiss() {
  TooltipState& s = state();
  s.rest.cancel();
  s.resting = nullptr;
  s.restingText = {};
  if (is_good_glob_ptr(s.window))
    GlobManager::requestDeletion(s.window);
  s.window = nullptr;
}

TooltipWindow* Tooltips::showing() {
  TooltipState& s = state();
  return is_good_glob_ptr(s.window) && !GlobManager::isDeletionPending(s.window) ? s.window : nullptr;
}

void ZoTooltipsEnable(bool enable) {
  state().enabled = enable;
  if (!enable)
    Tooltips::dismiss();
}

bool ZoTooltipsEnabled() { return state().enabled; }

void Glob::setContextString(TooltipDetails const& details) { tooltip_ = details.text; }

UIString Glob::getTooltip(XY<int>, bool) const { return getTooltip(); }
