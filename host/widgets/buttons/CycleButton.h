#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>

#include <vector>

// A button that steps through a list of labels, one per click, wrapping
// round after the last. Its callbacks hear of each step; getPickState says
// where it stands.
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
  std::size_t stringCount() const noexcept { return strings_.size(); }
  // Out-of-range states are ignored.
  void setPickState(int pickState, eRedrawFlag redraw = kRedrawNow);
  int getPickState() const noexcept { return pickState_; }

protected:
  void performAction() override;

private:
  std::vector<UIString> strings_;
  int pickState_ = 0;
};
