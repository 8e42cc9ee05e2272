#pragma once

#include <zowidgets/colour/EyeDropperImageButton.h>
#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>
#include <zowidgets/values/notify/NotifierBase.h>

#include <array>
#include <vector>

class MagnifyTool;

// A latching button that takes over the mouse: clicked, it captures every
// mouse event (through the event intercept stack), covers the screen with a
// still picture of itself (so that presses anywhere reach us), shows a
// crosshair and a magnifier lens that follows the pointer, and samples the
// screen where the user then clicks or drags. Escape, a sample, or a click on the button
// itself gives the mouse back.
//
// In the area style (the default) the user drags out a box and the mean
// colour of the box (or, in range mode, its range of hue, saturation and
// value) is sent to the parent as a message on release; in the other style
// the pixel under a press is sampled at once.
class ZO_API CursorCapturer : public ImageButton {
public:
  enum captureStyleType : int { kSampleOnPress = 0, kAreaStyle = 1 };
  enum eSampleMode : int { kSampleColour = 0, kSampleRange = 1 };
  static constexpr int kCaptureCursor = kCursorCapture;
  // What the log says when the intercept stack refuses or loses the button.
  static constexpr char kEnableFailure[] = "Failed to enabled cursor capture.";
  static constexpr char kDisableFailure[] = "Failed to disable cursor capture.";
  static constexpr int kLensLevel = 8;

  using InitArgs = ImageButton::InitArgs;

  explicit CursorCapturer(InitArgs const& args);
  ~CursorCapturer() override;
  char const* idstring() const override { return "CursorCapturer"; }

  virtual void enableCapture();
  virtual void disableCapture();
  virtual bool enabled() const { return capturing_; }
  virtual void setDropperStyle(captureStyleType style) { dropperStyle_ = style; }
  virtual captureStyleType getDropperStyle() const { return dropperStyle_; }
  // Whether a point in the parent's coordinates is on this button.
  virtual bool cursorOverButton(int x, int y) const;
  // Samples the pixel at a screen point and tells the parent.
  virtual void evaluatePixelAndNotify(int x, int y) = 0;

  void setSampleMode(int mode) { sampleMode_ = mode; }
  int getSampleMode() const noexcept { return sampleMode_; }
  // The last range sampled in range mode (see ColEyeDropBase::getPixelRange).
  std::array<double, 6> const& getRange() const noexcept { return range_; }
  // The screen box from the press to the pointer, both pixels included; the
  // pointer's pixel alone before a press.
  Zo::Box<double> getAreaToSample() const;
  XY<double> getAreaStart() const noexcept { return areaStart_; }
  // The lens while capturing, else null.
  MagnifyTool* getMagnifier() const;
  // Where the lens goes for a pointer position: right of it, its top edge
  // level with the pointer, or above that when it would cover `keepClear`
  // (the area being sampled); kept on the screen.
  static XY<int> lensPositionFor(XY<int> mouse, Zo::Box<double> const& keepClear = {});
  static int lensSide();

  int react(Event const& event) override;
  int intercept(Event const& event) override;

protected:
  // Space or Return on the focused button starts a capture, as a click does.
  void performAction() override;

private:
  int handleGlobalMouseEvent(Event const& event);
  int reactWhileCapturing(Event const& event);
  void sendSample(Zo::Box<double> const& area);

  bool capturing_ = false;
  captureStyleType dropperStyle_ = kAreaStyle;
  GlobHandle magnifier_;
  GlobHandle cover_;
  XY<double> areaStart_{-1.0, -1.0};
  int sampleMode_ = kSampleColour;
  IdStamp interceptStamp_ = IdStamp::null();
  std::array<double, 6> range_{};
  std::vector<Zo::Ptr<Zo::Guard>> guards_;
};
