#pragma once

#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/buttons/Button.h>

class Checkbox;

// What a checkbox tells its listeners when the user toggles it.
struct ZO_API CheckboxEvent {
  enum eKind : int { kToggled = 0 };
  int kind = kToggled;
  Checkbox* checkbox = nullptr;
  bool checked = false;
};

// An on/off choice with a label. Bound through an adaptor, a click asks the
// data to change; the box shows whatever the data then says.
class ZO_API Checkbox : public Glob, public ValWidget<bool> {
public:
  enum eAppearance : int {
    kTickBox = 0, // a box with a tick in it
    kSwitch = 1,  // a sliding switch
  };

  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, bool checked = false)
        : GlobCreationInfo(size), label(std::move(label)), checked(checked) {}
    UIString label;
    bool checked = false;
    int appearance = getDefaultAppearance();
  };

  explicit Checkbox(InitArgs const& args);
  char const* idstring() const override { return "Checkbox"; }

  // The theme's "checkbox.appearance", else a tick box.
  static int getDefaultAppearance();
  // The width a checkbox needs for this label.
  static int calcWidth(UIString const& label);

  void setCallback(Broadcaster<CheckboxEvent>::Callback const& callback) { listeners_.addListener(callback); }
  void setLabel(UIString const& label, eRedrawFlag redraw = kRedrawNow);
  LightweightString<wchar_t> const& getLabel() const noexcept { return label_; }
  bool isChecked() const noexcept { return checked_; }
  // Toggles as a click would: the data, the look, then the listeners.
  void toggle();

  void setNewWidgetValue(bool& value, eRedrawFlag redraw) override;
  bool getWidgetValue() override { return checked_; }
  int react(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  // The square (or switch track) at the left, in this widget's coordinates.
  Zo::Box<int> indicatorBox() const;
  void drawTickBox(CanvasRenderer& renderer, Zo::Box<int> const& box) const;
  void drawSwitch(CanvasRenderer& renderer, Zo::Box<int> const& box) const;

  Broadcaster<CheckboxEvent> listeners_;
  PressTracker tracker_;
  LightweightString<wchar_t> label_;
  int appearance_ = kTickBox;
  bool checked_ = false;
};
