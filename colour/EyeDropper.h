#pragma once

#include <zowidgets/colour/EyeDropperCursorCapturer.h>
#include <zowidgets/colour/EyeDropperSampling.h>

// The colour picker's eye dropper: a pipette button that captures the mouse
// and sends the colour the user picks off the screen to its parent as a
// "colour_eye_dropper HSV h s v" message (see ColEyeDropBase).
class ZO_API colourEyeDropper : public CursorCapturer, public ColEyeDropBase {
public:
  static constexpr char const* kName = "Colour Eye Dropper";
  // The picture on the button, by its icon name.
  static constexpr char const* kIconName = "eyedropper.png";

  struct InitArgs : ImageButton::InitArgs {
    InitArgs(int width, int height) : InitArgs(UIString(), width, height) {}
    InitArgs(UIString label, int width, int height);
  };

  explicit colourEyeDropper(InitArgs const& args);
  char const* idstring() const override { return "colourEyeDropper"; }

  void evaluatePixelAndNotify(int x, int y) override;
};
