#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/binding/ValWidget.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <string>
#include <string_view>

class Button;

// What a button tells its listeners: that it was pressed, and by whom.
struct ZO_API ButtonEvent {
  enum eKind : int { kPressed = 0 };
  int kind = kPressed;
  Button* button = nullptr;
  LightweightString<char> name; // the button's widget name
};

// Follows one mouse press on a widget: a click completes only when the left
// button goes up over the widget it went down on. Hover is tracked too, so
// owners can draw the pressed and hovered looks.
class ZO_API PressTracker {
public:
  enum eOutcome : int { kIgnored = 0, kUsed = 1, kClicked = 2 };
  // `size` is the widget's; the event's position is in its coordinates.
  eOutcome track(Event const& event, XY<int> size);
  // Everything a pressable widget does with an event: Space or Return, or a
  // click whose press and release both land on the widget, activates it; the
  // press and hover look may change. Events it does not take are not handled.
  struct Reaction {
    bool handled = false;
    bool lookChanged = false;
    bool activated = false;
  };
  Reaction react(Event const& event, XY<int> size);
  bool isPressed() const noexcept { return down_ && inside_; }
  bool isHovered() const noexcept { return hovered_; }
  void reset() noexcept { down_ = inside_ = hovered_ = false; }

private:
  bool down_ = false;
  bool inside_ = false;
  bool hovered_ = false;
};

// A labelled button. Its label is its value: a ButtonWidget of wide strings,
// so an adaptor can drive the text. A press reaches the button's callbacks,
// then, if the button has a message, its parent through Glob::sendMsg.
// Latching buttons stay down after a click until clicked again.
class ZO_API Button : public Glob, public ButtonWidget<LightweightString<wchar_t>> {
public:
  enum eStyle : int {
    kStyleFlat = 0,   // face only when hovered, pressed or latched
    kStyleRaised = 1, // a face always
    kStyleLink = 2,   // underlined text, no face
  };

  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, LightweightString<char> message = {})
        : GlobCreationInfo(size), label(std::move(label)), message(std::move(message)) {}
    UIString label;
    LightweightString<char> message; // sent to the parent on a press
    int style = kStyleRaised;
    bool latching = false;
    bool autoResize = false; // width follows the label
    wchar_t glyph = 0;       // a symbol drawn before the label
    Zo::Image::Surface icon; // a picture before the label, or alone
  };

  explicit Button(InitArgs const& args);
  char const* idstring() const override { return "Button"; }

  void setCallback(Broadcaster<ButtonEvent>::Callback const& callback) { listeners_.addListener(callback); }
  // A callback that sends `message` to `listener` as if from the pressed
  // button; once the listener has gone it does nothing.
  static Broadcaster<ButtonEvent>::Callback makeMessageCallback(LightweightString<char> const& message, Glob* listener);
  void setLabel(UIString const& label, eRedrawFlag redraw = kRedrawNow);
  LightweightString<wchar_t> const& getLabel() const noexcept { return label_; }
  void setMessage(LightweightString<char> const& message) { message_ = message; }
  void setStyle(int style, eRedrawFlag redraw = kRedrawNow);
  int getStyle() const noexcept { return style_; }
  void setGlyph(wchar_t glyph, eRedrawFlag redraw = kRedrawNow);
  // An empty surface removes the icon. The icon is scaled to a square that
  // fits the button's height.
  void setIcon(Zo::Image::Surface const& icon, eRedrawFlag redraw = kRedrawNow);
  // An icon by name (host/drawing/IconNames.h) in place of the picture:
  // drawn at the size the button shows it, in the label's colour, so it
  // follows the scale and the button's state. An empty name removes it.
  void setIconName(std::string_view name, eRedrawFlag redraw = kRedrawNow);
  std::string const& getIconName() const noexcept { return iconName_; }
  // Puts the icon after the label instead of before it, as on a button whose
  // arrow points the way it goes.
  void setIconTrailing(bool trailing, eRedrawFlag redraw = kRedrawNow);
  bool isIconTrailing() const noexcept { return iconTrailing_; }
  void setLatching(bool latching) { latching_ = latching; }
  bool isLatching() const noexcept { return latching_; }
  // A button that ignores clicks keeps its look, but mouse input and the
  // keys that press it pass it by: a latched choice that is not to be
  // chosen again, say. press() still works.
  void setIgnoresClicks(bool ignores);
  bool ignoresClicks() const noexcept { return ignoresClicks_; }
  // The latched state: 1 down, 0 up.
  void setState(int state, eRedrawFlag redraw = kRedrawNow);
  int getState() const noexcept { return state_; }
  // Invalid colours go back to the palette's.
  void setTextColour(Colour const& colour, eRedrawFlag redraw = kRedrawNow);
  void setFaceColour(Colour const& colour, eRedrawFlag redraw = kRedrawNow);
  // The font the label is drawn in; FontDesc() (the default) is the
  // interface font, and an empty family or a size of 0 take the interface's.
  void setFont(Glib::FontDesc const& font, eRedrawFlag redraw = kRedrawNow);
  Glib::FontDesc const& getFont() const noexcept { return font_; }
  void setAutoResize(bool autoResize);

  // The width a button needs for this label in this font (default font when
  // the family is empty), and the standard button height.
  static int calcWidth(UIString const& label, Glib::FontDesc const& font = {});
  static int calcHeight();
  // The width of the drop-down arrow area at the right of menu buttons.
  static int getRevealIndicatorWidth();

  // Carries out a press as a click would.
  void press();
  bool isPressedLook() const noexcept { return tracker_.isPressed(); }
  bool isHovered() const noexcept { return tracker_.isHovered(); }

  void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override;
  LightweightString<wchar_t> getWidgetValue() override { return label_; }
  int react(Event const& event) override;

protected:
  // What this kind of button does on a press, before anyone is told.
  virtual void performAction() {}
  // A button that opens something below itself opens it on the Down arrow
  // too, with or without Alt, while it is closed: true then.
  virtual bool opensOnDownArrow() const { return false; }
  void draw(CanvasRenderer& renderer) override;
  // The label area; menu buttons keep room for their arrow.
  virtual Zo::Box<int> labelBox() const;
  // Whether the state is drawn as a button held down; any state but 0 is.
  virtual bool showsStateDown() const { return state_ != 0; }
  void drawFace(CanvasRenderer& renderer) const;
  void drawLabel(CanvasRenderer& renderer, Zo::Box<int> const& box) const;
  Colour labelColour() const;

private:
  void fitWidth();
  // The label's font with the interface's family and size filled in.
  Glib::FontDesc labelFont() const;
  // The glyph, if any, then the label.
  LightweightString<wchar_t> displayText() const;
  // The side of the icon's square; 0 without an icon.
  int iconSide() const;

  Broadcaster<ButtonEvent> listeners_;
  PressTracker tracker_;
  LightweightString<wchar_t> label_;
  LightweightString<char> message_;
  Zo::Image::Surface icon_;
  std::string iconName_;
  Colour textColour_ = Colour::invalid();
  Colour faceColour_ = Colour::invalid();
  Glib::FontDesc font_;
  int style_ = kStyleRaised;
  int state_ = 0;
  wchar_t glyph_ = 0;
  bool latching_ = false;
  bool autoResize_ = false;
  bool iconTrailing_ = false;
  bool ignoresClicks_ = false;
};
