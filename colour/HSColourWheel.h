#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/binding/ColourDataValue.h>

class Canvas;
class CanvasRenderer;

// A square widget showing a disc of hue (around) and saturation (outwards)
// with a small circular cursor on it. Dragging the cursor edits the hue and
// saturation of the bound ColourData and leaves its value and alpha alone; a
// left click away from the cursor resets to grey (hue 0, saturation 0).
//
// Geometry is relative to the disc centre, x to the right and y upwards.
// Display angles are degrees clockwise from the top; hue 0 sits 14 degrees
// anticlockwise of the top, which the picture and the cursor both follow.
// The picture softens saturation into 0.2..1, so its centre is a pale tint,
// while the cursor and the colours produced keep the true saturation.
//
// Pictures are cached per widget and, across all wheels, the last one built:
// a wheel of the same picture size on the same background shares it without
// computing anything. The brightness is not part of that key.
//
// A panel without a frame unless one is asked for: the gap around the disc
// is the wheel's own border.
class ZO_API HSColourWheel : public StandardPanel, public ColourDataValWidget {
public:
  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
  };

  // The change types an edit carries: the start of a gesture, its
  // continuation, and the reset of a click away from the cursor.
  static constexpr DataChangeType kGestureStart = kDataChangeNone;
  static constexpr DataChangeType kGestureContinue = kDataChangePartial;
  static constexpr DataChangeType kResetByClick = static_cast<DataChangeType>(3);

  // The host's cursor codes: the ordinary one, and the one over the cursor.
  static constexpr int kPlainCursorCode = kCursorArrow;
  static constexpr int kGrabCursorCode = kCursorGrab;

  // The border is a widget gap; the picture is drawn at brightness 1.
  explicit HSColourWheel(InitArgs const& args);
  // A `size` by `size` wheel in the standard colour scheme, drawn at
  // brightness `value`, added at the bottom-left of the canvas's root when a
  // canvas is given.
  HSColourWheel(Canvas* canvas, unsigned short size, double value, unsigned short border);

  char const* idstring() const override { return "HSColourWheel"; }

  // The map between the colour shown and the colour stored; identity here.
  virtual ColourData UIColourToDataColour(ColourData const& colour) const { return colour; }
  virtual ColourData UIColourFromDataColour(ColourData const& colour) const { return colour; }

  // An edit in two steps: a disc point becomes a colour, the colour goes to
  // the data. The cursor moves only when the data's new value comes back.
  void setFromXY(double x, double y, DataChangeType type);
  void setFromColour(ColourData const& colour, DataChangeType type);

  // Hue in 0..360 and saturation in 0..1 to a disc point; -1 (and x, y left
  // alone) outside those ranges.
  int convertHStoXY(double hue, double saturation, double& x, double& y) const;
  // A disc point to hue and saturation; -1 (outputs unset) when the whole
  // pixels of its distance reach the whole pixels of the radius.
  int convertXYtoHS(double x, double y, double& hue, double& saturation) const;
  // Negative for hue above 346.
  static double convertHueToDisplayAngle(double hue);
  // In (0, 360].
  static double convertDisplayToHueAngle(double angle);
  // Moves a point beyond the radius onto the rim along the same line.
  void snapPoint(double& x, double& y) const;
  // Within the radius (a circle).
  bool validColourPoint(double x, double y) const;
  // Within -radius..radius on both axes (a square).
  bool pointOfInterest(double x, double y) const;
  // Moves the cursor; -1 and nothing done when the point is the cursor, is
  // outside the square, or is not a colour of the disc.
  int setCursor(double x, double y);

  double getRadius() const noexcept { return radius_; }
  XY<double> getCentre() const noexcept { return centre_; }
  XY<double> getCursor() const noexcept { return cursor_; }
  unsigned short getWheelBorder() const noexcept { return border_; }
  double getDisplayValue() const noexcept { return displayValue_; }
  // The brightness of the colours this wheel produces.
  double getValue() const noexcept { return value_; }
  bool isDragging() const noexcept { return dragging_; }
  // The cursor's circle, in widget coordinates.
  Zo::Box<double> getAreaForCrosshair() const;

  // The background the disc sits on: the palette's window colour.
  Colour getCol() const;
  void setCol(Colour const& colour);
  void setPalette(Palette const& palette) override;

  // The picture this wheel shows, built at the first paint; empty before.
  Zo::Image::Surface const& getWheelImage() const noexcept { return image_; }
  // Builds the picture for this wheel's radius and brightness on
  // `background`, bypassing every cache.
  Zo::Image::Surface computeWheelImage(NormalisedRGB const& background) const;
  // How many pictures have been built since the program started.
  static long long wheelImageComputations() noexcept;

  int contextCursor(XY<int> point) const override;
  void resize(double width, double height) override;
  void setActive(bool active, eRedrawFlag redraw) override;
  int react(Event const& event) override;
  // 1 when the event moved or grabbed the cursor.
  int handleMouseEvent(Event const& event) override;

  void setNewWidgetValue(ColourData& value, eRedrawFlag redraw) override;
  void setEnabledState(bool enabled) override { setActive(enabled, kRedrawNow); }
  bool getEnabledState() const override { return isActive(); }
  ColourData getWidgetValue() override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  void computeGeometry();
  // True when the event concerns the cursor; x and y then become the mouse
  // position.
  bool handleMouseCursorEvent(Event const& event, double& x, double& y);
  Zo::Image::Surface const& obtainWheelImage(NormalisedRGB const& background);
  void drawCursor(CanvasRenderer& renderer);
  // The pixels the cursor's circle touches.
  Zo::Box<int> cursorPaintBox() const;
  double currentAlpha();

  static Zo::Image::Surface lastWheelImage_;
  static NormalisedRGB lastBgColour_;

  double radius_ = 0.0;
  XY<double> centre_;
  double displayValue_ = 1.0;
  double value_ = 1.0;
  unsigned short border_ = 0;
  XY<double> cursor_{0.0, 0.0};
  XY<int> grabOffset_{0, 0};
  bool dragging_ = false;
  // Set by the event that picked the cursor up, until the next mouse event.
  bool justGrabbed_ = false;
  // Where a chord press takes the cursor, both edges inclusive.
  int hitLeft_ = 0;
  int hitRight_ = 0;
  int hitBottom_ = 0;
  int hitTop_ = 0;
  Zo::Image::Surface image_;
  NormalisedRGB imageBackground_;
};
