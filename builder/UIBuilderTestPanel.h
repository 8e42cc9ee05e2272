#pragma once

#include <zowidgets/builder/UIBuilderParams.h>

// "UIBuilder Test Panel": every kind of parameter built in code, with
// visibility, activity and limit rules, and a "Build" action that builds the
// rows afresh from a new list. Opened by the command "UIBuilderTest2".
class ZO_API UIBuilderTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "UIBuilderTest2";

  explicit UIBuilderTestPanel(InitArgs const& args);
  char const* idstring() const override { return "UIBuilderTestPanel"; }

  // Opens one on the screen (bottom-left corner at `screenPosition`;
  // unset: where the toolkit puts new windows).
  static UIBuilderTestPanel* open(XY<int> screenPosition = XY<int>::unset());
  // The parameters the panel builds, each call a new list.
  static GenericParam::ParamList makeParams();

  UIBuilder::Params* getBuiltParams() const noexcept { return built_.get(); }
  GenericParam::ParamList const& getParams() const noexcept { return params_; }
  // How many times the listener heard a change since the last build.
  int changesHeard() const noexcept { return changesHeard_; }
  void rebuild();

protected:
  void handleDoIt() override { rebuild(); }

private:
  int handleChange(NotifyMsg const& message);
  // Fits the panel to its visible rows, keeping its top edge where it is.
  void fitToRows();

  GenericParam::ParamList params_;
  Zo::Ptr<UIBuilder::Params> built_;
  int changesHeard_ = 0;
};
