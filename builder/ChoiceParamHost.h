#pragma once

#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/values/binding/ValWidget.h>
#include <zowidgets/values/notify/ValClient.h>
#include <zowidgets/values/params/ChoiceParam.h>

#include <vector>

// The row of a choice parameter: a titled menu button with one row per
// choice, bound to the parameter's number. Choices are numbered freely, so
// the row keeps both directions of the number-to-row mapping.
class ZO_API ChoiceParamHost : public Glob, public ValWidget<unsigned int> {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(UIString legend, XY<int> size, std::vector<GenericParam::ChoiceParam::Choice> const& choices)
        : GlobCreationInfo(size), legend(std::move(legend)), choices(choices) {}
    UIString legend;
    std::vector<GenericParam::ChoiceParam::Choice> choices;
    int legendWidth = 0; // 0: the legend's own
  };

  explicit ChoiceParamHost(InitArgs const& args);
  char const* idstring() const override { return "ChoiceParamHost"; }

  TitleMenuButton* getMenuButton() const noexcept { return button_; }
  // The menu row of a choice's number; -1 for a number no choice carries.
  int menuIndexOf(unsigned int value) const;

  void setNewWidgetValue(unsigned int& value, eRedrawFlag redraw) override;
  unsigned int getWidgetValue() override { return shown_; }
  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;

protected:
  void drawBackground(CanvasRenderer&) override {}

private:
  void handleChoice(int menuIndex);

  TitleMenuButton* button_ = nullptr;
  // By menu row; a value is found by a walk from the top, so a number used
  // twice shows its first row (lists are short, and a map cost more to
  // make than every look-up it saved).
  std::vector<unsigned int> valueAt_;
  unsigned int shown_ = 0;
};

// Binds a choice row to the parameter's server.
class ZO_API ChoiceParamAdaptor : public ValAdaptorBase<unsigned int>, public ValClient<unsigned int> {
public:
  explicit ChoiceParamAdaptor(ValServer<unsigned int>* server) { registerWith(server); }
  unsigned int getDataValue() override { return static_cast<unsigned int>(*this); }
  bool requestSetNewDataValue(unsigned int const& value, DataChangeType) override {
    ValClient<unsigned int>::operator=(value);
    return true;
  }
  void valChangedNtfy() override { setNewWidgetValue(getDataValue(), kRedrawNow); }
};
