#pragma once

#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/containers/DropDownButton2.h>

class ColourSwatch;

// A button showing a colour as a swatch; pressed, it opens a ColourPicker on
// that colour in a drop-down. The swatch follows the user's edits in the
// picker, and the button passes them on to its own listeners.
class ZO_API DropDownColourPickerButton : public DropDownButton2<ColourPicker>, public Broadcaster<ColourPickerEvent> {
public:
  struct InitArgs : DropDownButton2<ColourPicker>::InitArgs {
    InitArgs() = default;
    explicit InitArgs(XY<int> size, ColourPicker::InitArgs const& picker = ColourPicker::InitArgs())
        : DropDownButton2<ColourPicker>::InitArgs(UIString(), size, picker) {}
    Broadcaster<ColourPickerEvent>::Callback callback;
  };

  explicit DropDownColourPickerButton(InitArgs const& args);
  char const* idstring() const override { return "DropDownColourPickerButton"; }

  // The colour the swatch shows, taken as RGB with its alpha.
  void setColour(NormalisedRGB const& colour);
  NormalisedRGB getColour() const;
  // Binds the swatch, and every picker opened from now on, to the data. (The
  // button's own adaptor, for its label, stays as it is.)
  using DropDownButton2<ColourPicker>::setDataAdaptor;
  void setDataAdaptor(Zo::Ptr<ValAdaptorBase<ColourData>> const& adaptor);
  Zo::Ptr<ValAdaptorBase<ColourData>> const& getColourDataAdaptor() const noexcept { return dataAdaptor_; }
  ColourSwatch* getSwatch() const noexcept { return swatch_; }

  // The picker's edits: shown on the swatch and passed on, unless suppressed
  // (while the owner sets the colour itself, say).
  int handleColourChange(ColourPickerEvent const& event);
  void setSuppressColourChanges(bool suppress) noexcept { suppressColourChanges_ = suppress; }
  bool areColourChangesSuppressed() const noexcept { return suppressColourChanges_; }

  // An inactive button closes its picker.
  void setActive(bool active, eRedrawFlag redraw) override;

protected:
  // The picker opens on the swatch's colour.
  void prepareToDisplayDropDown() override;

private:
  ColourSwatch* swatch_ = nullptr;
  Zo::Ptr<ValAdaptorBase<ColourData>> dataAdaptor_;
  bool suppressColourChanges_ = false;
};
