#include "InputProbe.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/toolkit/UifStd.h>

InputProbe::InputProbe(XY<int> size) : Glob(GlobCreationInfo(size)) { setCanBeIt(true); }

int InputProbe::react(Event const& event) {
  switch (event.type) {
  case Event::kMouseDown:
    ++downs_;
    lastDown_ = event.position;
    lastClicks_ = event.clicks;
    return 1;
  case Event::kMouseUp:
    ++ups_;
    return 1;
  case Event::kMouseWheel:
    wheelSteps_ += event.wheel;
    return 1;
  case Event::kKeyDown:
    ++keysDown_;
    lastKey_ = event.key;
    return 1;
  case Event::kTextInput:
    typed_ += event.text.str();
    invalidate();
    return 1;
  default:
    return 0;
  }
}

void InputProbe::draw(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), palette.window(-2)));
  int const inset = UifStd::getWidgetGap();
  renderer.renderPrimitive(
      Glib::RectDescription(Zo::Box<int>(inset, inset, width() / 4, height() - inset), palette.selection()));
  renderer.renderPrimitive(Glib::TextDescription(toWide(typed_.empty() ? "click and type" : typed_),
                                                 Zo::Box<double>(width() / 4 + inset, 0, width() - inset, height()),
                                                 UifStd::getFont(), palette.text()));
}
