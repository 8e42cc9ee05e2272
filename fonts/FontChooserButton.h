#pragma once

#include <zowidgets/containers/DropDownButton2.h>
#include <zowidgets/fonts/FontChooserPanel.h>
#include <zowidgets/fonts/FontDefinitionEx.h>
#include <zowidgets/fonts/FontDefinitionServer.h>

// A button that shows a font's family in that family and, pressed, opens a
// FontChooserPanel on the font in a drop-down. The mouse wheel over it steps
// through the installed families without opening anything: away from the
// user to the previous family, towards the user to the next, staying put at
// either end. Every change of the font, from the panel or the wheel, goes to
// the client callback as a kChangedMsg NotifyMsg carrying an Event.
class ZO_API FontChooserButton : public DropDownButton2<FontChooserPanel> {
public:
  static constexpr char const* kChangedMsg = "FontChooserButton";

  // What the client callback is sent: a copy of the font as it now is.
  class ZO_API Event : public iObject {
  public:
    explicit Event(FontDefinition const& font);
    FontDefinitionEx font;
  };

  struct InitArgs : DropDownButton2<FontChooserPanel>::InitArgs {
    InitArgs() = default;
    // A button of `size` on `font`, keeping the recent fonts of its panel
    // under `recentFontsKey` (empty: none).
    InitArgs(XY<int> size, FontDefinition const& font, LightweightString<char> const& recentFontsKey = {});
    FontDefinition font;
    Zo::Ptr<iCallbackBase<int, NotifyMsg>> callback;
  };

  explicit FontChooserButton(InitArgs const& args);
  char const* idstring() const override { return "FontChooserButton"; }

  // Shows `font` without telling anyone.
  void setSelectedFont(FontDefinition const& font);
  FontDefinition getSelectedFont() const { return font_.get(); }
  // The button's font, for widgets that bind to it.
  void setClientCallback(Zo::Ptr<iCallbackBase<int, NotifyMsg>> const& callback) { callback_ = callback; }
  // The family's name on the button, in the family.
  void updateLegend();

  int react(::Event const& event) override;

protected:
  // One step of the wheel: positive to the previous family.
  void handleMouseWheelDelta(int delta);
  // The panel opens with the keyboard in its filter: typing narrows the
  // families at once.
  void displayDropDown() override;

private:
  int handleFontChange(ValServerEvent<FontDefinition> const& event);

  FontDefinitionServer font_;
  Zo::Ptr<Zo::Guard> fontGuard_;
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> callback_;
};
