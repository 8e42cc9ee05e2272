#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Glob.h>

// A line (or, with word wrap, a paragraph) of text that the user reads but
// does not edit.
class ZO_API TextLabel : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    UIString text;
    Glib::eTextAlignment alignment = Glib::eTextAlignment::Left;
    Glib::FontDesc font;               // empty: UifStd::getFont()
    Colour colour = Colour::invalid(); // invalid: the palette's text colour
    bool wordWrap = false;
  };

  explicit TextLabel(InitArgs const& args);
  char const* idstring() const override { return "TextLabel"; }

  void setString(UIString const& text, eRedrawFlag redraw = kRedrawNow);
  UIString const& getString() const noexcept { return text_; }
  void setAlignment(Glib::eTextAlignment alignment);
  Glib::eTextAlignment getAlignment() const noexcept { return alignment_; }
  void setFont(Glib::FontDesc const& font);
  Glib::FontDesc getFont() const;
  void setTextColour(Colour const& colour);
  Colour getTextColour() const;
  void setWordWrap(bool wrap);
  bool getWordWrap() const noexcept { return wordWrap_; }

  // The box the text is laid out in: the area inside the border, less an
  // indent on either side.
  Zo::Box<int> textBox() const;
  // The width a label needs to show `text` on one line in `font`.
  static int calcWidth(UIString const& text, Glib::FontDesc const& font = {});

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Glib::TextDescription describe() const;

  UIString text_;
  Glib::eTextAlignment alignment_;
  Glib::FontDesc font_;
  Colour colour_;
  bool wordWrap_;
};
