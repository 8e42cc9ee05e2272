#pragma once

#include <zowidgets/builder/UIBuilderParams.h>

#include <string>

// A panel built from parameters, for the end-to-end cases that act on a
// built form as a person would: it reports the parameters' values and where
// its widgets are on the screen.
class FormPanel {
public:
  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit FormPanel(XY<int> screenPosition);
  ~FormPanel();
  FormPanel(FormPanel const&) = delete;
  FormPanel& operator=(FormPanel const&) = delete;

  // The values and the widgets' places, as one line of JSON; `toScreen`
  // turns a bottom-up screen box into the JSON the caller wants.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

private:
  StandardPanel* panel_ = nullptr;
  GenericParam::ParamList params_;
  Zo::Ptr<UIBuilder::Params> built_;
};
