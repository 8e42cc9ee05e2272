#pragma once

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

// A latching button that shows a drop-down window beside itself while it is
// down. It never owns the window: it refers to it through a handle and its
// stamp, and hears of it through the window's event callback. The drop-down
// itself is made by subclasses in displayDropDown(), called from
// switchState() when the button goes down.
class ZO_API DropDownButtonBase : public Button {
public:
  // Where a drop-down window of a given size goes: its bottom-left corner on
  // the screen, and the side of the button it lies on.
  struct Placement {
    XY<int> position;
    eWidgetRelativity relativity = kRelativeNone;
  };

  explicit DropDownButtonBase(Button::InitArgs const& args);
  ~DropDownButtonBase() override;
  char const* idstring() const override { return "DropDownButtonBase"; }

  // The side the drop-down prefers (it goes to the opposite side when there
  // is no room) and how it lines up with the button along that side.
  void setDropDownAlignment(eWidgetAlignment alignment, eWidgetRelativity relativity);
  eWidgetAlignment getDropDownAlignment() const noexcept { return alignment_; }
  eWidgetRelativity getDropDownRelativity() const noexcept { return relativity_; }
  // A window of `size` beside the button, kept wholly on the screen.
  Placement calcDropDownPosition(XY<int> const& size) const;
  // The palette drop-down windows of this button use.
  Palette makeDropDownPalette() const;

  // 1: the drop-down may be torn off and left floating.
  void setDetachMode(int mode) { detachMode_ = mode; }
  int getDetachMode() const noexcept { return detachMode_; }
  // A modal drop-down refuses input to every other window while it shows.
  void setModal(bool modal) { modal_ = modal; }
  bool isModal() const noexcept { return modal_; }
  // Edges of the drop-down the user may drag (see DropDownHostBase).
  void setResizableEdges(int edges) { resizableEdges_ = edges; }
  int getResizableEdges() const noexcept { return resizableEdges_; }
  void setDropDownBorder(Border const& border) { dropDownBorder_ = border; }
  Border const& getDropDownBorder() const noexcept { return dropDownBorder_; }

  // Goes down (1) or up (any other state): showing or removing the drop-down
  // is the subclass's part; this shows the state on the button.
  virtual void switchState(int state, bool redraw);
  // Closes the drop-down, if one shows.
  void removeDropDown();
  // The drop-down on show, or null; a torn-off one is no longer on show.
  DropDownHostBase* getDropDownHost() const;

protected:
  // Called before each display.
  virtual void prepareToDisplayDropDown() {}
  virtual void displayDropDown() = 0;
  // What the drop-down window reports: the base forgets a closed or
  // dismissed window and lets a torn-off one float, and pops the button up.
  virtual void handleDropDownEvent(DropDownHostBase::Event const& event);
  // Takes a new drop-down window as the one on show.
  void adoptDropDown(DropDownHostBase* host);
  // A torn-off window from an earlier display, if it still floats.
  GlobHandle& previousDropDown() noexcept { return previousHost_; }

  void performAction() override;
  bool opensOnDownArrow() const override { return getDropDownHost() == nullptr; }
  // The label leaves room at the right for a chevron that points to where
  // the drop-down opens.
  Zo::Box<int> labelBox() const override;
  void draw(CanvasRenderer& renderer) override;
  // While the drop-down shows, edges round the button leave open the side
  // that meets it, so that button and window read as one shape.
  void drawBorder(CanvasRenderer& renderer) override;

private:
  GlobHandle host_;
  GlobHandle previousHost_;
  eWidgetRelativity relativity_ = kRelativeBelow;
  eWidgetAlignment alignment_ = kAlignStart;
  Border dropDownBorder_;
  int detachMode_ = 0;
  int resizableEdges_ = 0;
  bool modal_ = false;
};

// A widget's box on the screen.
ZO_API Zo::Box<int> screenBoxOf(Glob const& widget);
// Where `other` lies in `widget`'s coordinates.
ZO_API Zo::Box<int> relativeBox(Glob const& widget, Glob const& other);
// The side of `box` that faces `other`, for boxes that touch or lie apart.
ZO_API eWidgetRelativity sideFacing(Zo::Box<int> const& box, Zo::Box<int> const& other);

// Makes a button fit its label again once a subclass has changed its label
// box, where the button was made to fit (no width, or auto-resizing).
ZO_API void refitButton(Button& button, Button::InitArgs const& args);

// A small chevron centred in `area`, pointing down or up.
ZO_API void drawDropDownChevron(CanvasRenderer& renderer, Zo::Box<int> const& area, Colour const& colour,
                                bool pointsUp);

// Draws edges of `thickness` inside `box`, leaving open the part of the
// `openSide` edge that `neighbour` (in the same coordinates) lies against.
ZO_API void drawOpenFrame(CanvasRenderer& renderer, Zo::Box<int> const& box, int thickness, Colour const& colour,
                          eWidgetRelativity openSide, Zo::Box<int> const& neighbour);
