#include "PickerPanel.h"

#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

PickerPanel::PickerPanel(XY<int> screenPosition) {
  XY<int> const pickerSize = ColourPicker::calcSize(ColourPicker::kDefaultFlags);
  StandardPanel::InitArgs args(
      StandardPanel::calcPanelSize(pickerSize, StandardPanel::kTitle, StandardPanel::getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(L"Picker");
  panel_ = new StandardPanel(args);
  ColourPicker::InitArgs pickerArgs(ColourPicker::kDefaultFlags, ColourData(0.5, 0.5, 0.5));
  pickerArgs.size = pickerSize;
  picker_ = panel_->createWidget<ColourPicker>(pickerArgs, Glob::UserTopLeft(0, 0));
  GlobManager::realize(panel_);
}

PickerPanel::~PickerPanel() {
  if (is_good_glob_ptr(panel_))
    GlobManager::requestDeletion(panel_);
}

std::string PickerPanel::stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const {
  Glob const* dropper = picker_->getEyeDropper();
  if (!dropper)
    return "{\"error\":\"the picker has no eye dropper\"}";
  Zo::Box<int> const dropperBox =
      Zo::Box<int>(0, 0, dropper->width(), dropper->height()).translated(dropper->screenPosition());
  auto text = [this](ColourData::ComponentID component) {
    return toNarrow(picker_->getComponentBox(component)->getString());
  };
  return "{\"red\":\"" + text(ColourData::kComponent0) + "\",\"green\":\"" + text(ColourData::kComponent1) +
         "\",\"blue\":\"" + text(ColourData::kComponent2) + "\",\"hex\":\"" +
         toNarrow(picker_->getHexBox()->getString()) + "\",\"dropper\":" + toScreen(dropperBox) + "}";
}
