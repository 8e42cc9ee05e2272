#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

// An angle in degrees.
using Angle = double;

// |a - b|, or 360 minus that when it exceeds 180.
ZO_API Angle calcSmallestDifference(Angle a, Angle b);

// A circular dial that shows an angle and lets the user drag it.
// The angle itself is kept by a subclass, through the three virtual
// operations getAngle, setAngle and getResetAngle; AngleControl below keeps
// it itself. A press within 20 degrees of the pointer (the dial's hand)
// drags it; a left press further away puts the angle back to its reset
// value. With the keyboard focus (a click gives it), Left and Right, or Down
// and Up, turn it by a degree (15 with Shift), and Home resets it.
class ZO_API AngleIndicatorWidget : public StandardPanel {
public:
  // Why the angle is being set, as setAngle hears it.
  enum eReason : int {
    kDragStart = 0, // a press close to the hand
    kDragMove = 1,  // the pointer moved while dragging
    kDragEnd = 2,   // the press ended (also for a key's turn)
    kReset = 3,     // a press away from the hand, or Home
  };
  static constexpr double kGrabDegrees = 20.0;

  explicit AngleIndicatorWidget(StandardPanel::InitArgs const& args);
  // A square of that size; the canvas is the parent's.
  AngleIndicatorWidget(unsigned short size, Palette const& palette, class Canvas* canvas = nullptr);
  char const* idstring() const override { return "AngleIndicatorWidget"; }

  virtual Angle getAngle() const = 0;
  virtual void setAngle(int reason, Angle angle) = 0;
  virtual Angle getResetAngle() const = 0;
  virtual Colour getCentreColour() const;

  XY<int> getCentre() const;
  int getRadius() const;
  // The clockwise angle from straight up, 0 to 360, of a point (in this
  // widget's coordinates) about the centre.
  Angle calcAngleToPos(XY<int> position) const;
  // calcAngleToPos kept continuous with the present angle.
  Angle calcAngle(XY<int> position) const;

  int contextCursor(XY<int> point) const override;
  int react(Event const& event) override;
  int handleMouseEvent(Event const& event) override;
  int handleKeyboardEvent(int key) override;
  virtual void handleMouseContainment(bool inside);
  bool isDragging() const noexcept { return dragging_; }
  bool isMouseInside() const noexcept { return mouseInside_; }

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer&) override {}

private:
  bool dragging_ = false;
  bool mouseInside_ = false;
};

// What an AngleControl tells its listeners: the reason (an
// AngleIndicatorWidget::eReason) and the new angle.
struct ZO_API AngleControlEvent {
  int kind = 0;
  Angle angle = 0.0;
};

// An angle dial that keeps its own angle and broadcasts each change.
class ZO_API AngleControl : public AngleIndicatorWidget {
public:
  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    Angle angle = 0.0;
    Angle resetAngle = 0.0;
  };

  explicit AngleControl(InitArgs const& args);
  char const* idstring() const override { return "AngleControl"; }

  Angle getAngle() const override { return angle_; }
  void setAngle(int reason, Angle angle) override;
  Angle getResetAngle() const override { return resetAngle_; }
  void setResetAngle(Angle angle) { resetAngle_ = angle; }
  void addListener(Broadcaster<AngleControlEvent>::Callback const& callback) { listeners_.addListener(callback); }

private:
  Angle angle_ = 0.0;
  Angle resetAngle_ = 0.0;
  Broadcaster<AngleControlEvent> listeners_;
};
