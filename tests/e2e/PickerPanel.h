#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <string>

class ColourPicker;

// A colour picker in a window of its own, for the end-to-end case that picks
// a colour off the real desktop with the picker's eye dropper.
class PickerPanel {
public:
  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit PickerPanel(XY<int> screenPosition);
  ~PickerPanel();
  PickerPanel(PickerPanel const&) = delete;
  PickerPanel& operator=(PickerPanel const&) = delete;

  // The picker's colour as its red, green, blue and hex boxes show it, and
  // where its eye dropper is, as one line of JSON.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

private:
  StandardPanel* panel_ = nullptr;
  ColourPicker* picker_ = nullptr;
};
