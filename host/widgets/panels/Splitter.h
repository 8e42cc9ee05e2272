#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/Orientation.h>
#include <zowidgets/values/notify/Broadcaster.h>

class Splitter;

// What a splitter tells its listeners: a drag (or a key press) begins, moves
// the bar, ends. `position` is where the bar is asked to be: the start of its
// visible band (its left edge when the children are side by side, its bottom
// edge when stacked) in its parent's coordinates, already kept within what
// the neighbouring children allow.
struct SplitterEvent {
  enum eKind : int { kMove = 0, kBegin = 1, kEnd = 2 };
  int kind = kMove;
  int position = 0;
  Splitter* splitter = nullptr;
};

// A bar between two children that the user drags to share the length
// between them: with the mouse, or with the arrow keys along its axis while
// it has the focus (Shift for a row at a time, Home and End to the ends).
//
// Its neighbours are the nearest visible siblings on either side of it,
// across from it, or the two given to setNeighbours. A move never takes a
// neighbour below its minimum size nor above its maximum (Glob::getMinSize,
// getMaxSize, 0 meaning none on that axis), nor the bar out of the parent's
// user area: the bar stops there.
//
// Each move is broadcast as a SplitterEvent and sent to the parent as the
// message kMoveMsg, so that the parent can share out its area anew. A
// splitter that resizesNeighbours does that itself before telling anyone:
// the neighbour before it keeps its far edge and takes the new length, the
// bar moves, and the neighbour after it keeps its far edge; a widget whose
// placement would move that edge is put in place with setPosition.
class ZO_API Splitter : public Glob, public Broadcaster<SplitterEvent> {
public:
  static constexpr char const* kMoveMsg = "SplitterMoved";
  // InitArgs::orientation when the splitter's shape is to say: taller than
  // wide divides children side by side.
  static constexpr int kOrientationFromShape = -1;

  // How a splitter looks: a band of the window's colour with a grip of dots
  // across its middle, lighter while the pointer is over it or it is
  // dragged, the grip in the selection colour while it has the focus.
  struct Look {
    Colour band;
    Colour grip;
    double gripDotRadius;
    int gripDotSpacing; // between the centres of neighbouring dots
    int gripDots;
    static Look make(Palette const& palette, int thickness, bool hot, bool focused, bool active);
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    // A splitter of the standard thickness across `length`.
    InitArgs(Orientation orientation, int length);
    int orientation = kOrientationFromShape;
    // A first listener, told of every event.
    Broadcaster<SplitterEvent>::Callback callback;
    bool resizesNeighbours = false;
  };

  explicit Splitter(InitArgs const& args);
  char const* idstring() const override { return "Splitter"; }

  // The thickness of a standard splitter at the present scale.
  static int calcThickness();
  // The size of a splitter dividing `length` pixels of children in this
  // orientation: the thickness across, the length along.
  static XY<int> calcDimensions(Orientation orientation, int length);

  Orientation getOrientation() const noexcept { return orientation_; }
  void setResizesNeighbours(bool resizes) noexcept { resizesNeighbours_ = resizes; }
  bool resizesNeighbours() const noexcept { return resizesNeighbours_; }
  // The children on either side: `before` at the left, or below when
  // stacked; `after` at the right, or above. Null asks the splitter to find
  // that side's neighbour itself, as it does by default.
  void setNeighbours(Glob* before, Glob* after);
  Glob* neighbourBefore() const;
  Glob* neighbourAfter() const;

  // Where the visible band starts, in the parent's coordinates, along the
  // axis (x side by side, y stacked).
  int getBarPosition() const;
  // The lowest and highest bar positions the neighbours and the parent
  // allow; both the present position when none is allowed.
  struct Range {
    int lowest;
    int highest;
  };
  Range getBarRange() const;
  // Moves the bar as a key press would: kept in range, then begin, move and
  // end are told (nothing when the bar would not move).
  void moveBarTo(int position);
  bool isDragging() const noexcept { return dragging_; }
  // Where the bar was last asked to go, within its range: what the last
  // move told.
  int getAskedPosition() const noexcept { return lastPosition_; }

  int react(Event const& event) override;
  void setActive(bool active, eRedrawFlag redraw) override;

protected:
  // From the start of the splitter's box to its visible band, and the band's
  // thickness, along the axis: the whole box for a standard splitter.
  virtual int visibleInset() const { return 0; }
  virtual int visibleThickness() const;
  bool isHot() const noexcept { return hovered_ || dragging_; }
  void draw(CanvasRenderer& renderer) override;

private:
  // Along the axis, in the parent's coordinates.
  int lowEdge(Glob const& widget) const;
  int highEdge(Glob const& widget) const;
  int lengthOf(XY<int> size) const;
  bool overlapsAcross(Glob const& widget) const;
  Glob* findNeighbour(bool before) const;
  Glob* liveNeighbour(Glob* chosen) const;
  // Kept in range; told as a move when it differs from the last one told.
  void requestBarPosition(int position);
  void applyToNeighbours(int position);
  void tell(int kind, int position);
  int reactToMouse(Event const& event);
  int reactToKey(int key);

  Orientation orientation_;
  bool resizesNeighbours_;
  Glob* before_ = nullptr;
  Glob* after_ = nullptr;
  bool dragging_ = false;
  bool hovered_ = false;
  int grabOffset_ = 0;   // pointer less band start along the axis when a drag began
  int lastPosition_ = 0; // the last position told during a drag
};
