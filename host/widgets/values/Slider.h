#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/values/RangeModel.h>
#include <zowidgets/values/binding/ValWidget.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What a slider tells its listeners: the user moved it, or began or ended a
// drag. `value` is the value the user asked for.
struct SliderEvent {
  enum eKind : int { kValueRequested = 0, kDragStarted = 1, kDragEnded = 2 };
  int kind = kValueRequested;
  double value = 0.0;
};

// A horizontal slider over a range of doubles. The user drags the thumb,
// clicks the track to jump there, turns the wheel, or uses the arrow keys
// (Home and End go to the ends, Page Up and Page Down take ten steps) while
// it has the focus. When bound, a user's edit goes to the data through
// requestSetNewDataValue and the slider shows only what comes back; unbound,
// it moves itself.
class ZO_API Slider : public Glob, public ValWidget<double>, public Broadcaster<SliderEvent> {
public:
  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    double minValue = 0.0;
    double maxValue = 1.0;
    // 0: any value; otherwise values snap to min + n * increment.
    double increment = 0.0;
    double initialValue = 0.0;
    Colour thumbColour = Colour::invalid(); // invalid: the palette's accent
  };

  // How a slider looks: sizes from UifStd and its height, colours from its
  // palette and state.
  struct Look {
    int thumbRadius;
    int trackThickness;
    int focusRingWidth;
    int tickHalfLength; // from the track's middle to a tick's end
    Colour track;
    Colour filled; // the part of the track below the value, and the thumb's centre
    Colour tick;
    Colour thumbFace;
    Colour focusRing;
    static int thumbRadiusFor(int height);
    static Look make(Palette const& palette, int height, bool active, Colour const& accent);
  };

  explicit Slider(InitArgs const& args);
  char const* idstring() const override { return "Slider"; }

  // Keeps the position inside the new range.
  void setValueRange(double minValue, double maxValue);
  double getMinValue() const noexcept { return range_.min(); }
  double getMaxValue() const noexcept { return range_.max(); }
  void setIncrement(double increment);
  double getIncrement() const noexcept { return range_.step(); }
  // What one key press or wheel step moves: the increment, or a hundredth of
  // the range when values are continuous.
  double stepSize() const noexcept { return range_.stepSize(); }
  RangeModel const& range() const noexcept { return range_; }

  // Shows `value`, clamped to the range and snapped to the increment.
  using Glob::setPosition;
  void setPosition(double value, eRedrawFlag redraw = kRedrawNow);
  double getPosition() const noexcept { return range_.value(); }

  // A marked value drawn as a tick on the track (a default, say).
  void setPointOfInterest(double value);
  void clearPointOfInterest();
  bool hasPointOfInterest() const noexcept { return hasPointOfInterest_; }
  double getPointOfInterest() const noexcept { return pointOfInterest_; }

  void setThumbColour(Colour const& colour);
  Colour thumbColour() const;
  bool isDragging() const noexcept { return dragging_; }

  // The track's x for a value, and the value at an x, in this widget's
  // coordinates.
  int valueToX(double value) const;
  double xToValue(int x) const;
  int thumbRadius() const;

  void setNewWidgetValue(double& value, eRedrawFlag redraw) override;
  double getWidgetValue() override { return range_.value(); }

  int react(Event const& event) override;
  void handleKbdFocus(bool gained) override;
  void setActive(bool active, eRedrawFlag redraw) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Look look() const;
  // A user's choice: to the data when bound, else shown at once.
  void requestValue(double value);
  int reactToMouse(Event const& event);
  int reactToKey(int key);
  void invalidateBetween(int xA, int xB);

  RangeModel range_;
  double pointOfInterest_ = 0.0;
  bool hasPointOfInterest_ = false;
  bool dragging_ = false;
  int grabOffset_ = 0; // pointer x less thumb x when a drag began
  Colour thumbColour_;
};
