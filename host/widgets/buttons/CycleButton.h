#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>

#include <algorithm>
#include <string>
#include <vector>

// A button that steps through a list of states, one per click, wrapping
// round after the last. Each state may have a label and an icon by name;
// there are as many states as the longer of the two lists. Its callbacks
// hear of each step; getPickState says where it stands.
class ZO_API CycleButton : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(std::vector<UIString> strings, XY<int> size, int pickState = 0)
        : Button::InitArgs(strings.empty() ? UIString() : strings[0], size), strings(std::move(strings)),
          pickState(pickState) {}
    std::vector<UIString> strings;
    int pickState = 0;
  };

  explicit CycleButton(InitArgs const& args);
  char const* idstring() const override { return "CycleButton"; }

  void setStrings(std::vector<UIString> const& strings, int pickState, eRedrawFlag redraw = kRedrawNow);
  // The icons of the states, in order (host/drawing/IconNames.h); an empty
  // name shows none. The state stays where it is.
  void setPickIcons(std::vector<std::string> const& iconNames, eRedrawFlag redraw = kRedrawNow);
  std::size_t stringCount() const noexcept { return strings_.size(); }
  std::size_t stateCount() const noexcept { return std::max(strings_.size(), iconNames_.size()); }
  // Out-of-range states are ignored.
  void setPickState(int pickState, eRedrawFlag redraw = kRedrawNow);
  int getPickState() const noexcept { return pickState_; }

protected:
  void performAction() override;

private:
  // Shows the label and icon of the current state.
  void showPickState(eRedrawFlag redraw);

  std::vector<UIString> strings_;
  std::vector<std::string> iconNames_;
  int pickState_ = 0;
};
