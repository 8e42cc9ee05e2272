#pragma once

#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/fonts/FontChooserButton.h>

// A FontChooserButton with a legend to its left.
class ZO_API TitledFontChooserButton : public TitledGlob<FontChooserButton> {
public:
  struct InitArgs : TitledGlob<FontChooserButton>::InitArgs {
    using TitledGlob<FontChooserButton>::InitArgs::InitArgs;
  };

  explicit TitledFontChooserButton(InitArgs const& args) : TitledGlob<FontChooserButton>(args) {}
  char const* idstring() const override { return "TitledFontChooserButton"; }
};
