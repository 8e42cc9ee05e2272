#include <zowidgets/editor/GestureButton.h>

#include <zowidgets/host/shell/Command.h>

GestureButton::GestureButton(InitArgs const& args) : CommandButton(args) {}

void GestureButton::addGesture(eDragDirection direction, LightweightString<char> const& command) {
  if (!CommandMap::findCommand(command.view()))
    return;
  gestures_[direction] = command;
}

eDragDirection GestureButton::directionOf(XY<int> p) const {
  bool const xWithin = p.x >= 0 && p.x < width();
  bool const yWithin = p.y >= 0 && p.y < height();
  if (xWithin && p.y >= height())
    return kDragUp;
  if (xWithin && p.y < 0)
    return kDragDown;
  if (yWithin && p.x < 0)
    return kDragLeft;
  if (yWithin && p.x >= width())
    return kDragRight;
  return kDragNone;
}

bool GestureButton::runGesture(eDragDirection direction) {
  auto const found = gestures_.find(direction);
  if (found == gestures_.end())
    return false;
  CommandMap::callCommand(found->second.view(), getContext());
  return true;
}

void GestureButton::handleMouseUp(Event const& event) {
  Button::react(event);
  XY<int> const p = event.position;
  if (p.x >= 0 && p.y >= 0 && p.x < width() && p.y < height())
    return;
  runGesture(directionOf(p));
}

int GestureButton::react(Event const& event) {
  if (event.type == Event::kMouseUp && (event.buttons & kMouseLeft) && !ignoresClicks()) {
    handleMouseUp(event);
    return 1;
  }
  if (event.type == Event::kKeyDown && (event.key & kKeyCtrl) && !ignoresClicks()) {
    switch (event.key & ~kKeyModifierMask) {
    case kKeyUp:
      return runGesture(kDragUp) ? 1 : 0;
    case kKeyDown:
      return runGesture(kDragDown) ? 1 : 0;
    case kKeyLeft:
      return runGesture(kDragLeft) ? 1 : 0;
    case kKeyRight:
      return runGesture(kDragRight) ? 1 : 0;
    default:
      break;
    }
  }
  return CommandButton::react(event);
}
