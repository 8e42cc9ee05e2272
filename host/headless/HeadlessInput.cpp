#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/InputRouter.h>

namespace HeadlessInput {

void moveTo(XY<int> screen) { InputRouter::mouseMoved(screen); }

void press(int button, int modifiers) {
  InputRouter::mouseButton(InputRouter::mousePosition(), button, true, modifiers, 1);
}

void release(int button, int modifiers) {
  InputRouter::mouseButton(InputRouter::mousePosition(), button, false, modifiers, 1);
}

void click(XY<int> screen, int button, int modifiers) {
  moveTo(screen);
  press(button, modifiers);
  release(button, modifiers);
}

void doubleClick(XY<int> screen, int button) {
  click(screen, button);
  moveTo(screen);
  InputRouter::mouseButton(screen, button, true, 0, 2);
  InputRouter::mouseButton(screen, button, false, 0, 2);
}

void drag(XY<int> from, XY<int> to, int steps, int button) {
  moveTo(from);
  press(button);
  if (steps < 1)
    steps = 1;
  for (int i = 1; i <= steps; ++i)
    moveTo(XY<int>(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps));
  release(button);
}

void wheel(XY<int> screen, int steps) {
  moveTo(screen);
  InputRouter::mouseWheel(screen, steps);
}

void keyPress(int code, int modifiers) { InputRouter::keyPressed(code, modifiers); }

void keyRelease(int code, int modifiers) { InputRouter::keyReleased(code, modifiers); }

void key(int code, int modifiers) {
  keyPress(code, modifiers);
  keyRelease(code, modifiers);
}

void typeText(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    // One UTF-8 sequence per character.
    std::size_t length = 1;
    unsigned char lead = static_cast<unsigned char>(utf8[i]);
    if (lead >= 0xF0)
      length = 4;
    else if (lead >= 0xE0)
      length = 3;
    else if (lead >= 0xC0)
      length = 2;
    std::string_view character = utf8.substr(i, length);
    int code = length == 1 ? lead : 0;
    if (code)
      keyPress(code);
    InputRouter::textTyped(character);
    if (code)
      keyRelease(code);
    i += length;
  }
}

XY<int> pointOn(Glob const& widget) { return pointOn(widget, XY<int>(widget.width() / 2, widget.height() / 2)); }

XY<int> pointOn(Glob const& widget, XY<int> local) { return widget.screenPosition() + local; }

void clickOn(Glob const& widget, int button) { click(pointOn(widget), button); }

void clickOn(Glob const& widget, XY<int> local, int button) { click(pointOn(widget, local), button); }

} // namespace HeadlessInput
