#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>

#include <map>

// Which way the pointer left a GestureButton before the press ended.
enum eDragDirection : int {
  kDragNone = 0,  // a diagonal (outside on both axes), or inside
  kDragUp = 1,    // above the button, x within it
  kDragDown = 2,  // below it, x within it
  kDragLeft = 3,  // left of it, y within it
  kDragRight = 4, // at or beyond its width, y within it
};

// A command button with gestures: a click runs its command; a
// press that ends beyond the button's edge runs the command entered for the
// direction it left by. With the keyboard focus, Space or Return runs the
// command and Ctrl with an arrow key runs that direction's gesture.
class ZO_API GestureButton : public CommandButton {
public:
  using InitArgs = CommandButton::InitArgs;

  explicit GestureButton(InitArgs const& args);
  char const* idstring() const override { return "GestureButton"; }

  // Ignored unless CommandMap knows the command; replaces the direction's
  // entry if it has one.
  void addGesture(eDragDirection direction, LightweightString<char> const& command);
  std::map<eDragDirection, LightweightString<char>> const& getGestures() const noexcept { return gestures_; }
  // The direction of a release at `position` (this button's coordinates).
  eDragDirection directionOf(XY<int> position) const;

  int react(Event const& event) override;
  virtual void handleMouseUp(Event const& event);

private:
  bool runGesture(eDragDirection direction);

  std::map<eDragDirection, LightweightString<char>> gestures_;
};
