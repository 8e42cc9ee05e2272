#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/ImageSurface.h>

class Glob;

// A top-level window: the root widget's backing picture on the screen. Screen
// coordinates are bottom-up like everything else: (0, 0) is the bottom-left
// corner of the screen and a canvas's position is its bottom-left corner.
//
// Painting is by damage: invalidated boxes collect, and a paint redraws only
// the widgets that touch them, clipped to them. While redraws are held
// (Drawable::disableRedraws) damage only collects; the outermost enable
// paints every canvas once. Only the part of a window on the screen is
// painted: damage beyond the screen's edges waits until the window is moved
// or resized to show it, or until its whole picture is asked for.
class ZO_API Canvas {
public:
  Canvas(Glob* root, XY<int> screenPosition, XY<int> size);
  Canvas(Canvas const&) = delete;
  Canvas& operator=(Canvas const&) = delete;
  ~Canvas();

  Glob* root() const noexcept { return root_; }
  XY<int> getPosition() const noexcept { return position_; }
  XY<int> getSize() const noexcept { return size_; }
  Zo::Box<int> screenBox() const;
  void move(XY<int> screenPosition);
  // Where the screen says the window is after something else moved it (a
  // window manager, another program): its widgets hear of the move as of
  // any, and the screen is not asked to move it again.
  void movedOnScreen(XY<int> screenPosition);
  void resize(XY<int> size);
  // Where and how large the screen says the window is after something else
  // resized it (a window manager): the root widget is resized to it, and the
  // screen is told only if the root would not take that size.
  void resizedOnScreen(XY<int> screenPosition, XY<int> size);
  bool isMapped() const noexcept { return mapped_; }
  void map();
  void unmap();
  // Puts this window in front of every other, but a panel behind the
  // dialogues (Glob::eWindowKind::kDialogue).
  void popToTop();
  // The screen put this window in front (a window manager activating it):
  // the stack follows, and the screen is not asked to raise it again. False
  // when it was in front already.
  bool raisedOnScreen();
  // The window's title for the desktop: the root widget's windowTitle().
  LightweightString<wchar_t> title() const;
  // Tells the screen that title() changed.
  void titleChanged();
  // Tells the screen that the root's windowKind() changed.
  void kindChanged();

  Zo::Image::Surface const& surface() const noexcept { return surface_; }

  // `box` in canvas coordinates.
  void addDamage(Zo::Box<int> const& box);
  Zo::Box<int> const& pendingDamage() const noexcept { return damage_; }
  void clearDamage();
  // Paints what is damaged on the screen, now.
  void paintPending();
  // Paints what is damaged anywhere, on the screen or off it: before the
  // whole picture is read (surface()).
  void paintPendingEverywhere();
  // The part of the canvas on the screen, in canvas coordinates.
  Zo::Box<int> shownArea() const;
  int paintCount() const noexcept { return paintCount_; }

  // The canvas under a screen point, front first, looking through the
  // canvas `lookThrough`; null when none.
  static Canvas* atScreenPoint(XY<int> point, Canvas const* lookThrough = nullptr);
  // The deepest visible widget under a screen point, in the front window
  // there, looking through the window `lookThrough` (an inspector over what
  // it inspects); null when no window is there.
  static Glob* widgetAtScreenPoint(XY<int> point, Canvas const* lookThrough = nullptr);
  // Every canvas, back to front.
  static std::vector<Canvas*> const& stack();
  // Paints every canvas that has damage on the screen.
  static void paintAllPending();

private:
  // After a window is raised or shown: the windows of higher layers go back
  // in front of it (dialogues before a panel, popups before both).
  void keepHigherLayersInFront();
  // False when it was in front of its layer already.
  bool moveToFrontOfStack();
  // Paints the damage within `limit`; what lies outside it stays damaged.
  void paintDamageWithin(Zo::Box<int> const& limit);
  // After a move or a resize: damage that came on the screen is painted.
  void paintWhatCameIntoView();
  Glob* root_;
  XY<int> position_;
  XY<int> size_;
  Zo::Image::Surface surface_;
  Zo::Box<int> damage_;
  bool mapped_ = false;
  int paintCount_ = 0;
  bool painting_ = false;
  // Taking a size the screen already shows.
  bool adoptingSize_ = false;
};
