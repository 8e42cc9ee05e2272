#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>

class Glob;
class Canvas;

// Modifier bits, carried in Event::modifiers and or-ed into key codes.
enum eKeyModifier : int {
  kKeyCmd = 0x100000,
  kKeyShift = 0x1000000,
  kKeyCtrl = 0x2000000,
  kKeyAlt = 0x4000000,
};

// Key codes: printable keys are their character; these are the others.
// Special keys carry the kKeySpecial bit over a fixed key number.
enum eKeyCode : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyReturn = 13,
  kKeyEscape = 27,
  kKeySpecial = 0x8000000,
  kKeyHome = kKeySpecial | 0x47,
  kKeyUp = kKeySpecial | 0x48,
  kKeyPageUp = kKeySpecial | 0x49,
  kKeyLeft = kKeySpecial | 0x4B,
  kKeyRight = kKeySpecial | 0x4D,
  kKeyEnd = kKeySpecial | 0x4F,
  kKeyDown = kKeySpecial | 0x50,
  kKeyPageDown = kKeySpecial | 0x51,
  kKeyInsert = kKeySpecial | 0x52,
  kKeyDelete = kKeySpecial | 0x53,
  kKeyF1 = kKeySpecial | 0x3B,
  kKeyModifierMask = kKeyCmd | kKeyShift | kKeyCtrl | kKeyAlt,
};

// Mouse buttons, as bits of Event::buttons.
enum eMouseButton : int {
  kMouseLeft = 1,
  kMouseRight = 2,
  kMouseMiddle = 4,
};

// What the host delivers to an EventHandler: input, focus, timer ticks and
// messages. Message events carry a name and an optional data object.
struct ZO_API Event {
  enum eType : int {
    kNone = 0,
    kMouseMove = 1,
    kMouseDown = 2,
    kMouseUp = 3,
    kMouseWheel = 4,
    kMouseEnter = 5,
    kMouseLeave = 6,
    kKeyDown = 7,
    kKeyUp = 8,
    kTextInput = 9, // typed text, UTF-8 in `text`
    kFocusIn = 10,
    kFocusOut = 11,
    kTimer = 12,
    kMessageEvent = 16385,
  };

  int type = kNone;
  LightweightString<char> message;
  Zo::Ptr<iObject> data;
  iObject* sender = nullptr;
  Glob* sourceWidget = nullptr; // the widget that sent a message, if any

  // Input: the pointer in the receiving widget's coordinates (bottom-up) and
  // on the screen, the buttons held (for down and up: the one that changed),
  // the modifier bits, click count, wheel steps (positive away from the user).
  XY<int> position;
  XY<int> screenPosition;
  int buttons = 0;
  int modifiers = 0;
  int clicks = 0;
  int wheel = 0;
  int key = 0; // for key events: the key code, with modifier bits
  LightweightString<char> text;
  Canvas* canvas = nullptr;

  bool isMessage() const noexcept { return type == kMessageEvent; }
  bool isMouse() const noexcept { return type >= kMouseMove && type <= kMouseLeave; }
  bool isKey() const noexcept { return type == kKeyDown || type == kKeyUp || type == kTextInput; }
};

// The host's mouse helpers, for widgets' react() and handlers.
ZO_API bool mouse_event(Event const& event);
ZO_API bool mouse_move_event(Event const& event);
ZO_API bool mouse_down_event(Event const& event);
ZO_API bool mouse_up_event(Event const& event);
ZO_API bool mouse_wheel_event(Event const& event);
ZO_API bool mouse_left_event(Event const& event);
ZO_API bool mouse_right_event(Event const& event);
// Left and right together: a chord.
ZO_API bool mouse_chord_event(Event const& event);
// The pointer position of the event being handled, in its widget's
// coordinates.
ZO_API int mouse_get_current_x(Event const& event);
ZO_API int mouse_get_current_y(Event const& event);
