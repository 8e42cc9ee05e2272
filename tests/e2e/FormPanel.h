#pragma once

#include <zowidgets/builder/UIBuilderParams.h>

#include <string>

// A built form, for the end-to-end cases that act on it as a person would:
// it reports its values and where its widgets are on the screen. Built from
// parameters, the values are the parameters'; built from a description,
// which keeps no parameters, they are what the rows show.
class FormPanel {
public:
  enum class Source { kParameters, kDescription };

  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  FormPanel(XY<int> screenPosition, Source source);
  ~FormPanel();
  FormPanel(FormPanel const&) = delete;
  FormPanel& operator=(FormPanel const&) = delete;

  // The values and the widgets' places, as one line of JSON; `toScreen`
  // turns a bottom-up screen box into the JSON the caller wants.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

private:
  std::string valuesJson() const;

  StandardPanel* panel_ = nullptr;
  GenericParam::ParamList params_;
  Zo::Ptr<UIBuilder::Params> built_;
};
