#include <zowidgets/host/events/Event.h>

bool mouse_event(Event const& event) { return event.isMouse(); }
bool mouse_move_event(Event const& event) { return event.type == Event::kMouseMove; }
bool mouse_down_event(Event const& event) { return event.type == Event::kMouseDown; }
bool mouse_up_event(Event const& event) { return event.type == Event::kMouseUp; }
bool mouse_wheel_event(Event const& event) { return event.type == Event::kMouseWheel; }
bool mouse_left_event(Event const& event) { return event.isMouse() && (event.buttons & kMouseLeft) != 0; }
bool mouse_right_event(Event const& event) { return event.isMouse() && (event.buttons & kMouseRight) != 0; }
bool mouse_chord_event(Event const& event) {
  return event.isMouse() && (event.buttons & (kMouseLeft | kMouseRight)) == (kMouseLeft | kMouseRight);
}
int mouse_get_current_x(Event const& event) { return event.position.x; }
int mouse_get_current_y(Event const& event) { return event.position.y; }
