#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/EyeDropperIcon.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

colourEyeDropper::InitArgs::InitArgs(UIString label, int width, int height)
    : ImageButton::InitArgs(std::move(label), XY<int>(width, height)) {
  // Drawn at the size the button shows it, so it stays sharp at any scale.
  int const buttonHeight = height > 0 ? height : Button::calcHeight();
  icon = makeEyeDropperIcon(std::max(1, buttonHeight - UifStd::getWidgetGap() * 2), UifStd::getColourScheme().text());
}

colourEyeDropper::colourEyeDropper(InitArgs const& args) : CursorCapturer(args) { setName(kName); }

void colourEyeDropper::evaluatePixelAndNotify(int x, int y) {
  LightweightString<char> message;
  grabPixelColour(x, y, message);
  Glob::sendMsg(parent(), message, this);
}
