#pragma once

#include <zowidgets/host/widgets/text/TitleTextBox.h>

// A titled box for one colour component: digits and a decimal point only,
// right-aligned. Bind it to a ColourComponentAdaptor or an AlphaTextAdaptor.
class ZO_API ComponentTextBox : public TitleTextBox {
public:
  struct InitArgs : TitleTextBox::InitArgs {
    using TitleTextBox::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(TitleTextBox::InitArgs const& args) : TitleTextBox::InitArgs(args) {}
  };

  explicit ComponentTextBox(InitArgs const& args);
  char const* idstring() const override { return "ComponentTextBox"; }
};
