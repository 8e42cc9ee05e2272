#include <zowidgets/diagnostics/GlobDetailsView.h>
#include <zowidgets/diagnostics/detail/GlobFacts.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

constexpr int kLineCount = 9;
// Room for the longest label with a window-sized value after it.
constexpr wchar_t const* kWidestLine = L"Screen Position : 00000, 00000";

LightweightString<wchar_t> trueFalse(bool value) { return value ? L"true" : L"false"; }

// A panel's legend is its title; other widgets' is their name.
LightweightString<wchar_t> legendOf(Glob const& widget) {
  LightweightString<wchar_t> title = widget.windowTitle();
  return title.empty() ? toWide(widget.getName().view()) : title;
}

} // namespace

GlobDetailsView::GlobDetailsView(GlobCreationInfo const& info) : Glob(info) {}

void GlobDetailsView::setTarget(Glob* target) {
  target_ = GlobHandle(target);
  invalidate();
}

LabelledLine GlobDetailsView::describe() const {
  Glob const* target = getTarget();
  if (!target)
    return {};
  using namespace GlobFacts;
  return {
      {L"Size : ", sizeText(target->getSize())},
      {L"Position : ", pointText(target->getPosition())},
      {L"Screen Position : ", pointText(target->screenPosition())},
      {L"Weight : ", target->isLightweight() ? L"light" : L"heavy"},
      {L"Visible : ", trueFalse(target->isVisible())},
      {L"Maximum Size : ", sizeText(target->getMaxSize())},
      {L"Margins : ", marginsText(target->getBorder())},
      {L"Minimum Size : ", sizeText(target->getMinSize())},
      {L"Legend : ", legendOf(*target)},
  };
}

XY<int> GlobDetailsView::calcSize() {
  int const width = LabelledText::lineWidth({{L"", kWidestLine}});
  return XY<int>(width + 2 * UifStd::getWidgetGap(), kLineCount * UifStd::getRowHeight() + 2 * UifStd::getWidgetGap());
}

void GlobDetailsView::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), palette.childWindow()));
  int const gap = UifStd::getWidgetGap();
  int const rowHeight = UifStd::getRowHeight();
  int top = height() - gap;
  for (LabelledValue const& detail : describe()) {
    LabelledText::drawLine(renderer, {detail}, Zo::Box<int>(gap, top - rowHeight, width() - gap, top), palette);
    top -= rowHeight;
  }
}
