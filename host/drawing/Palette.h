#pragma once

#include <zowidgets/host/drawing/Colour.h>

// The colours a widget draws with. A palette is a plain value: widgets copy it
// and change what they need through the makers below.
//
// window, childWindow and text take a shade: 0 is the colour itself, each
// step up adds kShadeStep to red, green and blue (lighter), each step down
// takes it away (darker), clamped to 0..1; alpha is kept. Hover highlights use
// window(2), recessed bands window(-2), and so on, in any scheme.
class ZO_API Palette {
public:
  static constexpr double kShadeStep = 0.04;

  // The default scheme: a dark editor theme.
  Palette();

  // Panel background.
  Colour window(int shade = 0) const { return shaded(window_, shade); }
  // Background of the boxes inside a panel: text boxes, lists, gauges.
  Colour childWindow(int shade = 0) const { return shaded(childWindow_, shade); }
  // Ordinary text on the window colour.
  Colour text(int shade = 0) const { return shaded(text_, shade); }
  Colour headingText() const { return headingText_; }
  // Accent for subheadings, and for the filled parts of sliders and gauges.
  Colour subheadingText() const { return subheadingText_; }
  // Background of selected rows and text.
  Colour selection() const { return selection_; }
  Colour warning() const { return warning_; }
  Colour success() const { return success_; }
  // Face of the button that carries out a panel's task.
  Colour doIt() const { return doIt_; }

  void setWindow(Colour const& colour) { window_ = colour; }
  void setChildWindow(Colour const& colour) { childWindow_ = colour; }
  void setText(Colour const& colour) { text_ = colour; }
  void setHeadingText(Colour const& colour) { headingText_ = colour; }
  void setSubheadingText(Colour const& colour) { subheadingText_ = colour; }
  void setSelection(Colour const& colour) { selection_ = colour; }
  void setWarning(Colour const& colour) { warning_ = colour; }
  void setSuccess(Colour const& colour) { success_ = colour; }
  void setDoIt(Colour const& colour) { doIt_ = colour; }

  // The shading rule above, for any colour.
  static Colour shaded(Colour const& colour, int shade) noexcept;
  // How an inactive widget draws `colour` over `behind`: 45% of the way to
  // it, so the widget still reads but is plainly not for use.
  static Colour inactive(Colour const& colour, Colour const& behind) noexcept {
    return Colour::mix(colour, behind, 0.45);
  }
  // Relative luminance (0 black .. 1 white) of the sRGB channels.
  static double luminance(Colour const& colour) noexcept;
  // True when the window colour is darker than mid grey.
  bool isDark() const noexcept { return luminance(window_) < 0.5; }

  friend bool operator==(Palette const&, Palette const&) = default;

private:
  Colour window_;
  Colour childWindow_;
  Colour text_;
  Colour headingText_;
  Colour subheadingText_;
  Colour selection_;
  Colour warning_;
  Colour success_;
  Colour doIt_;
};

// What a child window is, for makeChildPalette.
enum eChildWindowType : int {
  kChildPanel = 0,     // a panel inside a panel
  kChildTextEntry = 1, // a box the user types into
  kChildList = 2,      // a list, table or tree
};

// A palette for a window of the given background: the child-window colour is
// derived from it (darker on a dark window, lighter on a light one), and the
// text colours are kept when they still read on it, else replaced by light or
// dark ones.
ZO_API Palette makeWindowPalette(Palette const& base, Colour const& window);
// The same with the base's own window colour: puts the derived colours back
// in line with it.
ZO_API Palette makeWindowPalette(Palette const& base);
// A palette whose window is the base's child-window colour; a text entry sits
// one shade further from the base window than a plain child panel or a list.
ZO_API Palette makeChildPalette(Palette const& base, eChildWindowType type);
// The base with another text colour.
ZO_API Palette makeTextPalette(Palette const& base, Colour const& text);
// Drop-downs and menus: the window one shade lighter than the base's on a dark
// scheme, one darker on a light scheme.
ZO_API Palette makePopupPalette(Palette const& base);
// Button faces: likewise three shades from the base window.
ZO_API Palette makeButtonPalette(Palette const& base);
