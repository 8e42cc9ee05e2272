#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/values/RangeModel.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What a scroll bar tells its listeners; its parent hears the same as named
// messages.
struct ScrollBarEvent {
  enum eKind : int { kThumbMoved = 0, kStepBack = 1, kStepForward = 2 };
  int kind = kThumbMoved;
  double position = 0.0; // the thumb's position, 0 at the start .. 1 at the end
};

// A scroll bar: a step button at each end and a track with a thumb whose
// length is the share of the content that shows. Positions run from 0 (thumb
// at the left, or at the top of a vertical bar) to 1 (at the other end).
// Dragging the thumb, or pressing the track beside it (a page), moves it and
// sends thumbMovedMsg; the end buttons and the wheel send the step messages
// and leave moving to the owner, who knows what a step is.
class ZO_API ScrollBar : public Glob, public Broadcaster<ScrollBarEvent> {
public:
  static constexpr char const* thumbMovedMsg = "ScrollBarThumbMoved";
  // The button at the start: left, or top for a vertical bar.
  static constexpr char const* leftButtonPressedMsg = "ScrollBarStepBack";
  // The button at the end: right, or bottom for a vertical bar.
  static constexpr char const* rightButtonPressedMsg = "ScrollBarStepForward";

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    double thumbSize = 1.0; // the share of the content that shows, 0..1
    double thumbPosition = 0.0;
  };

  // How a scroll bar looks: colours from its palette and state, sizes from
  // its thickness and UifStd.
  struct Look {
    Colour background;
    Colour arrow;
    Colour thumb;
    double arrowHalfSize; // half the height of an end button's arrow
    int thumbInset;       // between the thumb's long sides and the bar's
    double thumbRadius;
    static Look make(Palette const& palette, int thickness, bool active);
  };

  explicit ScrollBar(InitArgs const& args);
  char const* idstring() const override { return "ScrollBar"; }

  // How thick a scroll bar is at the present scale.
  static int thickness();
  // Taller than wide.
  bool isVertical() const noexcept { return height() > width(); }

  void setThumbSize(double share);
  double getThumbSize() const noexcept { return range_.page(); }
  void setThumbPosition(double position, eRedrawFlag redraw = kRedrawNow);
  double getThumbPosition() const noexcept { return range_.value(); }
  // The position in 0..1, with the share that shows as its page.
  RangeModel const& range() const noexcept { return range_; }
  // For an owner that scrolls by this bar: the offset one of its messages
  // asks for, given the present offset, a step, and the largest offset;
  // false for a message that is not the bar's.
  bool requestedOffset(LightweightString<char> const& message, int offset, int step, int maxOffset,
                       int& requested) const;

  // Along the bar, in pixels from its start: the track between the buttons,
  // and the thumb within it.
  int trackStart() const;
  int trackLength() const;
  int thumbLength() const;
  int thumbStart() const;

  int react(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  // A point's distance along the bar from its start.
  int along(XY<int> point) const;
  // A box given along and across the bar, in this widget's coordinates.
  Zo::Box<int> barBox(int from, int to) const;
  void userMoveThumb(double position);
  double pageStep() const;
  void report(int kind);

  RangeModel range_;
  bool dragging_ = false;
  int grabOffset_ = 0;
};
