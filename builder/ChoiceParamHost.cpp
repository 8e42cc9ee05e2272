#include <zowidgets/builder/ChoiceParamHost.h>

#include <algorithm>

ChoiceParamHost::ChoiceParamHost(InitArgs const& args) : Glob(args) {
  std::vector<MenuItem> items;
  items.reserve(args.choices.size());
  valueAt_.reserve(args.choices.size());
  for (GenericParam::ChoiceParam::Choice const& choice : args.choices) {
    valueAt_.push_back(choice.value);
    MenuItem item(choice.label, Colour::invalid(), Colour::invalid(), choice.tooltip);
    item.active = choice.enabled;
    items.push_back(std::move(item));
  }
  TitleMenuButton::InitArgs buttonArgs(args.legend, std::move(items), -1, getSize());
  buttonArgs.titleWidth = args.legendWidth;
  button_ = createChild<TitleMenuButton>(buttonArgs, Glob::BottomLeft(0, 0));
  button_->getBtn().setSelectionHook([this](int index) { handleChoice(index); });
}

int ChoiceParamHost::menuIndexOf(unsigned int value) const {
  auto const found = std::find(valueAt_.begin(), valueAt_.end(), value);
  return found == valueAt_.end() ? -1 : static_cast<int>(found - valueAt_.begin());
}

void ChoiceParamHost::setNewWidgetValue(unsigned int& value, eRedrawFlag redraw) {
  shown_ = value;
  button_->setSelectedItem(menuIndexOf(value), redraw);
}

void ChoiceParamHost::setActive(bool active, eRedrawFlag redraw) {
  button_->setActive(active, redraw);
  Glob::setActive(active, redraw);
}

void ChoiceParamHost::resize(double width, double height) {
  Glob::resize(width, height);
  button_->resize(width, height);
}

void ChoiceParamHost::handleChoice(int menuIndex) {
  if (menuIndex >= 0 && static_cast<std::size_t>(menuIndex) < valueAt_.size())
    requestSetNewDataValue(valueAt_[static_cast<std::size_t>(menuIndex)], kDataChangeAll);
}
