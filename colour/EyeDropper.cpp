#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/EyeDropperIcon.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

colourEyeDropper::InitArgs::InitArgs(UIString label, int width, int height)
    : ImageButton::InitArgs(std::move(label), XY<int>(width, height)) {
  // Drawn at the size the button shows it, so it stays sharp at any scale:
  // the theme's "eyedropper.png" artwork, or our own pipette without it.
  int const buttonHeight = height > 0 ? height : Button::calcHeight();
  int const side = std::max(1, buttonHeight - UifStd::getWidgetGap() * 2);
  Colour const ink = UifStd::getColourScheme().text();
  IconCache::Icon const themed = IconCache::get(kIconName, side, ink);
  icon = themed.fromTheme ? themed.surface : makeEyeDropperIcon(side, ink);
}

colourEyeDropper::colourEyeDropper(InitArgs const& args) : CursorCapturer(args) { setName(kName); }

void colourEyeDropper::evaluatePixelAndNotify(int x, int y) {
  LightweightString<char> message;
  grabPixelColour(x, y, message);
  Glob::sendMsg(parent(), message, this);
}
