#pragma once

#include <zowidgets/colour/ComponentTextBox.h>

// The degree sign that follows a hue.
ZO_API LightweightString<wchar_t> getDegreesString();

// A component box with a unit after its field ("°", "%"), in a strip of
// its own at the right so that typed text never runs under it.
class ZO_API ColourPickerSuffixBox : public ComponentTextBox {
public:
  struct InitArgs : ComponentTextBox::InitArgs {
    using ComponentTextBox::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(ComponentTextBox::InitArgs const& args) : ComponentTextBox::InitArgs(args) {}
    LightweightString<wchar_t> suffix;
  };

  explicit ColourPickerSuffixBox(InitArgs const& args);
  char const* idstring() const override { return "ColourPickerSuffixBox"; }

  LightweightString<wchar_t> const& getSuffix() const noexcept { return suffix_; }
  // The same for every unit, so that fields above one another line up.
  static int suffixStripWidth();
  Zo::Box<int> getFieldBox() const override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  LightweightString<wchar_t> suffix_;
};
