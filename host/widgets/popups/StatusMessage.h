#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/widgets/popups/MessageText.h>
#include <zowidgets/host/widgets/popups/TipWindowBase.h>

class Button;

// A small window telling the user something beside what it is about: its
// text, wrapped, and with kOkButton a footer whose OK button acknowledges it.
// OK (a click, or Return while the window has the focus) calls
// handleOkPressed, which closes the window; Escape closes it without.
class ZO_API StatusMessage : public TipWindowBase {
public:
  enum eFlags : unsigned {
    kOkButton = 8, // a footer with an OK button
  };

  struct InitArgs : TipWindowBase::InitArgs {
    InitArgs() = default;
    // Sized by calcSize for this text, tip and flags.
    InitArgs(UIString text, eWidgetRelativity relativity, unsigned flags = kOkButton);
    UIString text;
    unsigned flags = kOkButton;
    // Room left and right of the text, and above and below it; below the
    // text comes the footer, if any.
    XY<int> spacing = standardSpacing();
  };

  explicit StatusMessage(InitArgs const& args);
  char const* idstring() const override { return "StatusMessage"; }

  // The outer size of a message showing `text` with its tip on the side
  // `relativity` names and these flags, at the standard spacing.
  static XY<int> calcSize(UIString const& text, eWidgetRelativity relativity, unsigned flags);
  // The same with `spacing` round the text instead of the standard spacing.
  static XY<int> calcSize(UIString const& text, eWidgetRelativity relativity, unsigned flags, XY<int> spacing);
  // The window colour status messages are drawn on.
  static Colour getBaseColour();
  // A widget gap beside, above and below the text.
  static XY<int> standardSpacing();
  // The size of the footer's OK button.
  static XY<int> okButtonSize();

  // OK was pressed: closes the window. Whoever acts on the acknowledgement
  // does so here, after this base's version.
  virtual void handleOkPressed();
  // Closes the window after the current event.
  void close();

  LightweightString<wchar_t> const& getText() const noexcept { return message_.text; }
  Button* getOkButton() const noexcept { return okButton_; }
  // The area above the footer; the text lies inside it, inset by the spacing.
  Zo::Box<int> getUserArea() const override;
  // The footer strip holding the OK button; empty without one.
  Zo::Box<int> getMarginArea() const override;
  int react(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  int footerHeight() const;

  MessageText message_;
  XY<int> spacing_;
  bool hasFooter_;
  Button* okButton_ = nullptr;
};
