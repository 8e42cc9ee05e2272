#include <zowidgets/host/widgets/buttons/CycleButton.h>

CycleButton::CycleButton(InitArgs const& args) : Button(args) { setStrings(args.strings, args.pickState, kNoRedraw); }

void CycleButton::setStrings(std::vector<UIString> const& strings, int pickState, eRedrawFlag redraw) {
  strings_ = strings;
  pickState_ = -1;
  setPickState(pickState, redraw);
}

void CycleButton::setPickIcons(std::vector<std::string> const& iconNames, eRedrawFlag redraw) {
  iconNames_ = iconNames;
  if (pickState_ < 0)
    setPickState(0, redraw);
  else
    showPickState(redraw);
}

void CycleButton::setPickState(int pickState, eRedrawFlag redraw) {
  if (pickState < 0 || pickState >= static_cast<int>(stateCount()) || pickState == pickState_)
    return;
  pickState_ = pickState;
  showPickState(redraw);
}

void CycleButton::showPickState(eRedrawFlag redraw) {
  auto const state = static_cast<std::size_t>(pickState_);
  setLabel(state < strings_.size() ? strings_[state] : UIString(), redraw);
  setIconName(state < iconNames_.size() ? iconNames_[state] : std::string(), redraw);
}

void CycleButton::performAction() {
  if (stateCount() != 0)
    setPickState((pickState_ + 1) % static_cast<int>(stateCount()));
}
