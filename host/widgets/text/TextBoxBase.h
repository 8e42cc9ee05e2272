#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>
#include <zowidgets/host/widgets/text/TextEditCore.h>
#include <zowidgets/values/binding/ValWidget.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

// A one-line text entry: a sunken box the user types into, with a caret,
// mouse and keyboard selection, the clipboard, ghost text, a password look
// and character rules. The text goes to the bound adaptor when the user
// presses Return or the box loses the keyboard focus; listeners hear every
// change the user makes (TextBoxEvent::kTextChanged) and Return
// (TextBoxEvent::kReturnPressed). Text set by the program raises no event.
class ZO_API TextBoxBase : public Glob, public ValWidget<LightweightString<wchar_t>>, public Broadcaster<TextBoxEvent> {
public:
  using eCharacterRestriction = TextEditCore::eCharacterRestriction;
  using enum TextEditCore::eCharacterRestriction;

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    UIString ghostLabel;
    bool editable = true;
  };

  explicit TextBoxBase(InitArgs const& args);
  char const* idstring() const override { return "TextBoxBase"; }

  // The surround that keeps a box's inset edge clear of its neighbours: the
  // edge's width on every side.
  static WidgetSurround getLightInsetSurround();
  // The width a plain box (no title, no eye) needs to show `text` whole in
  // the interface font.
  static int widthToShow(LightweightString<wchar_t> const& text);

  // Replaces the text without raising an event; the caret goes to the end.
  void setString(LightweightString<wchar_t> const& text);
  LightweightString<wchar_t> getString() const;
  TextEditCore const& editor() const noexcept { return editor_; }

  void setEditable(bool editable);
  bool isEditable() const noexcept { return editable_; }
  void setAlignment(Glib::eTextAlignment alignment);
  Glib::eTextAlignment getAlignment() const noexcept { return alignment_; }
  // Shown, dimmed, while the box is empty.
  void setGhostLabel(UIString const& label);
  UIString const& getGhostLabel() const noexcept { return ghostLabel_; }
  // Draws a bullet for every character, and keeps the text off the clipboard.
  void setObfuscatedDisplay(bool obfuscated);
  bool isObfuscatedDisplay() const noexcept { return obfuscated_; }
  // An eye at the right end of an obfuscated box that shows and hides the
  // real text when clicked.
  void setShowPasswordControl(bool shown);
  bool hasShowPasswordControl() const noexcept { return showPasswordControl_; }
  bool isPasswordRevealed() const noexcept { return revealed_; }
  // Whether the keys go to the eye rather than the text.
  bool isEyeFocused() const noexcept { return eyeFocused_ && hasKbdFocus(); }
  void setCharacters(LightweightString<wchar_t> const& characters, eCharacterRestriction restriction = kOnlyAllowed);
  // Most characters the text may hold; 0 for no limit.
  void setSizeLimit(std::size_t limit) { editor_.setSizeLimit(limit); }

  // Sends `message` to `target` (by Glob::sendMsg) for each event whose kind
  // is among the bits of `kinds`.
  void requestCallback(LightweightString<char> const& message, Glob* target, int kinds);

  // The part of the box that is the sunken field, in the box's coordinates.
  virtual Zo::Box<int> getFieldBox() const;

  // ValWidget
  void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override;
  LightweightString<wchar_t> getWidgetValue() override { return getString(); }

  int react(Event const& event) override;
  void handleKbdFocus(bool gained) override;

protected:
  // Handles a key press; non-zero when used.
  virtual int handleKeyboardEvent(int key);
  // Sends the text to the adaptor; without `force` only when the user
  // changed it since it was last sent or shown.
  virtual void commit(bool force);
  // After the user changed the text.
  void textEdited();
  // The user changed the text since it was last sent or shown.
  bool isModified() const noexcept { return modified_; }
  // After the caret or the selection moved.
  void caretMoved();
  void notify(int kind);
  TextEditCore& editModel() noexcept { return editor_; }

  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  struct CallbackRequest {
    LightweightString<char> message;
    Glob* target;
    int kinds;
  };

  Palette fieldPalette() const;
  std::wstring displayText() const;
  Zo::Box<int> textArea() const;
  Zo::Box<int> eyeBox() const;
  void toggleReveal();
  void setEyeFocused(bool focused);
  // A key while the eye shows: taken (1), or -1 for the text to have.
  int handleEyeKey(int key);
  // The displayed text's width; and the advance widths of every prefix of
  // it, measured only when a caret, a selection or a click needs them.
  double textWidth() const;
  std::vector<double> const& prefixWidths() const;
  void measureWhenChanged() const;
  double textOriginX() const;
  std::size_t indexAt(int x) const;
  void scrollToCaret();
  void copySelection();
  void paste();
  void drawEye(CanvasRenderer& renderer, Palette const& palette) const;

  TextEditCore editor_;
  UIString ghostLabel_;
  Glib::eTextAlignment alignment_ = Glib::eTextAlignment::Left;
  std::vector<CallbackRequest> callbackRequests_;
  mutable bool measured_ = false;
  mutable std::wstring measuredText_;
  mutable unsigned measuredFontSize_ = 0;
  mutable double textWidth_ = 0.0;
  mutable std::vector<double> prefixWidths_;
  double scroll_ = 0.0;
  bool editable_ = true;
  bool obfuscated_ = false;
  bool showPasswordControl_ = false;
  bool revealed_ = false;
  // The eye holds the keyboard within the box: Tab from the text reaches
  // it, Space or Return shows or hides the password.
  bool eyeFocused_ = false;
  bool modified_ = false;
  bool dragging_ = false;
};
