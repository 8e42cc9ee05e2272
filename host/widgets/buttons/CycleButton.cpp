#include <zowidgets/host/widgets/buttons/CycleButton.h>

CycleButton::CycleButton(InitArgs const& args) : Button(args) { setStrings(args.strings, args.pickState, kNoRedraw); }

void CycleButton::setStrings(std::vector<UIString> const& strings, int pickState, eRedrawFlag redraw) {
  strings_ = strings;
  pickState_ = -1;
  setPickState(pickState, redraw);
}

void CycleButton::setPickState(int pickState, eRedrawFlag redraw) {
  if (pickState < 0 || pickState >= static_cast<int>(strings_.size()) || pickState == pickState_)
    return;
  pickState_ = pickState;
  setLabel(strings_[pickState], redraw);
}

void CycleButton::performAction() {
  if (!strings_.empty())
    setPickState((pickState_ + 1) % static_cast<int>(strings_.size()));
}
