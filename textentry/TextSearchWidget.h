#pragma once

#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>
#include <zowidgets/values/notify/Broadcaster.h>

class Button;
struct ButtonEvent;
class TextBox;

// What a search box reports: the text to search for.
struct ZO_API TextSearchWidgetEvent {
  LightweightString<wchar_t> text;
};

// The one-line search box: a text box and a search button. A search starts
// only on Return or on the button, never while typing; it goes to the
// widget's listeners or, with none, as "StartSearch" to its parent, so that
// a host widget needs no subscription. Listeners that want the search later
// wrap their callback in UIThreadCallbackDupe.
class ZO_API TextSearchWidget : public StandardPanel, public Broadcaster<TextSearchWidgetEvent> {
public:
  enum eButtonStyle : int {
    kLabelButton = 0, // "Search", sized to its label
    kIconButton = 1,  // a square magnifier
  };

  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    explicit InitArgs(XY<int> size, eButtonStyle buttonStyle = kLabelButton, bool alwaysEnabled = false)
        : GlobCreationInfo(size), buttonStyle(buttonStyle), alwaysEnabled(alwaysEnabled) {}
    // A box `width` wide and a row high, in `palette`'s colours.
    InitArgs(unsigned short width, Palette const& palette);
    eButtonStyle buttonStyle = kLabelButton;
    // When false the button is inactive while the box is empty.
    bool alwaysEnabled = false;
    Zo::Ptr<iCallbackBase<int, TextSearchWidgetEvent>> callback;
  };

  static constexpr char const* kStartSearchMsg = "StartSearch";

  explicit TextSearchWidget(InitArgs const& args);
  char const* idstring() const override { return "TextSearchWidget"; }

  // Replaces the text without a search; the button follows the new text.
  virtual void setString(LightweightString<wchar_t> const& text);
  // After each change the user makes: the button follows the text.
  virtual void handleTextTyped();
  virtual void handleEnterPressed();
  virtual void handleSearchPressed();

  LightweightString<wchar_t> getString() const;
  void setTextAlignment(Glib::eTextAlignment alignment);
  void setGhostLabel(UIString const& label);
  // Reports the text now: to the listeners, or to the parent without any.
  void requestStartSearch();

  TextBox* getTextBox() const noexcept { return textBox_; }
  Button* getButton() const noexcept { return button_; }
  bool isAlwaysEnabled() const noexcept { return alwaysEnabled_; }

  void resize(double width, double height) override;
  void setActive(bool active, eRedrawFlag redraw) override;
  void setPalette(Palette const& palette) override;
  void handleChildResize(Glob* child) override;
  // Focus given to the widget goes to its text box.
  bool claimKbdFocus() override;
  // Typing and editing keys that reach the button (it holds the keyboard
  // after Enter) go on in the box, so a search can be refined at once.
  int react(Event const& event) override;

protected:
  // Whether the button takes presses now.
  bool buttonWanted() const;
  // Shows the button active or not, recolouring it only on a change.
  void showButtonActive(bool active);

private:
  int handleTextEvents(TextBoxEvent const& event);
  int handleSearchButton(ButtonEvent const& event);
  void fitTextBox();

  TextBox* textBox_ = nullptr;
  Button* button_ = nullptr;
  bool alwaysEnabled_ = false;
};
