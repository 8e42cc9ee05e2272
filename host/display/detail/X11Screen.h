#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <memory>
#include <string>
#include <vector>

// The X11 services the window library lacks: the desktop's pixels anywhere,
// the pointer outside our windows, font cursors and the display's density.
// Coordinates here are X's own: top-down, origin at the top-left corner.
class ZO_API X11Screen {
public:
  // Null when no X display can be opened.
  static std::unique_ptr<X11Screen> open();
  ~X11Screen();
  X11Screen(X11Screen const&) = delete;
  X11Screen& operator=(X11Screen const&) = delete;

  XY<int> size() const;
  // ZOWIDGETS_SCALE when set, else the display's density over 96 dots per
  // inch, to the nearest half and never below 1.
  double scale() const;
  // The root window's pixels in `area` (top-down), opaque; parts off the
  // screen read as black.
  Zo::Image::Surface grab(Zo::Box<int> const& area) const;
  XY<int> pointer() const;
  // The pointer with the buttons held, whichever window they were pressed
  // on: a press on the desktop or another program's window is reported to
  // that window alone.
  struct PointerState {
    XY<int> at;
    bool left = false;
    bool middle = false;
    bool right = false;
  };
  PointerState pointerState() const;
  // The pointer's buttons pressed and let go since last asked, on any window
  // of any program, in order: however short a click, both halves are here.
  // Where the X server lacks the input extension's raw events, what the
  // held buttons say now against the last time asked.
  struct ButtonChange {
    int button = 1; // 1 left, 2 middle, 3 right
    bool down = true;
    friend bool operator==(ButtonChange const&, ButtonChange const&) = default;
  };
  std::vector<ButtonChange> takeButtonChanges();
  // Shows the shape for a cursor id (see docs/host-display.md) on an X window.
  void setCursor(unsigned long window, int cursorId);
  // The window's WM_CLASS: the program's name and class, by which window
  // managers and tools group and find its windows.
  void setWindowClass(unsigned long window, std::string const& name, std::string const& className);
  // Puts a window in front of its siblings; the keyboard stays where it is.
  void raise(unsigned long window);
  // Watches one of our windows for its destruction by another program
  // (xdotool windowclose, a window manager gone wrong); requests about it
  // that fail once it has gone are passed over rather than ending the
  // program.
  void watchWindow(unsigned long window);
  // The watched windows destroyed since last asked.
  std::vector<unsigned long> takeDestroyedWindows();
  // Where the keyboard goes: a window of any program, or X's own choices
  // (none, or the window under the pointer), with what follows when that
  // window goes.
  struct KeyboardHolder {
    unsigned long window = 0;
    int revertTo = 0;
    friend bool operator==(KeyboardHolder const&, KeyboardHolder const&) = default;
  };
  KeyboardHolder keyboardHolder() const;
  void giveKeyboardTo(KeyboardHolder const& holder);
  // Gives the keyboard to `window`, to go to its parent should it close.
  void giveKeyboardToWindow(unsigned long window);

private:
  struct State;
  explicit X11Screen(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
