#pragma once

#include <zowidgets/values/params/Param.h>

#include <vector>

namespace GenericParam {

// One of a list of numbered choices. The only parameter that refuses text:
// a value that no choice carries is not acceptable (though nothing stops it
// being assigned).
class ZO_API ChoiceParam : public Param<unsigned int> {
public:
  struct Choice {
    UIString label;
    UIString tooltip;
    unsigned int value = 0;
    bool enabled = true;
  };

  ChoiceParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip, int value,
              std::vector<Choice> const& choices)
      : Param<unsigned int>("int", id, legend, tooltip, static_cast<unsigned int>(value)), choices_(choices) {}

  bool isAcceptableValue(unsigned int const& value) const override {
    for (Choice const& choice : choices_)
      if (choice.value == value)
        return true;
    return false;
  }
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new ChoiceParam(*this)); }

  std::vector<Choice> const& getChoices() const noexcept { return choices_; }

private:
  std::vector<Choice> choices_;
};

} // namespace GenericParam
