#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

// A titled frame around a group of rows. The title sits in a band at the top;
// the rows go in the user area below it, inset by a widget gap on the other
// three sides.
class ZO_API WidgetGroup : public Glob {
public:
  // How the group is set off from its surroundings.
  enum eSeparatorStyle : int {
    kSeparatorFrame = 0, // a rounded frame whose top edge the title breaks
    kSeparatorRule = 1,  // a line after the title only
    kSeparatorNone = 2,  // the title alone
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    UIString title;
    int separatorStyle = kSeparatorFrame;
  };

  explicit WidgetGroup(InitArgs const& args);
  char const* idstring() const override { return "WidgetGroup"; }

  void setTitle(UIString const& title);
  UIString const& getTitle() const noexcept { return title_; }
  void setSeparatorStyle(int style);
  int getSeparatorStyle() const noexcept { return separatorStyle_; }

  // The height of a group holding `rows` rows of `rowHeight` spaced by
  // `rowGap`, with the title band when `titled` is non-zero (border aside).
  static int calcHeightForRows(int rows, int rowHeight, int rowGap, int titled = 1);
  // How much narrower than the group its rows are: the insets on both sides.
  static int childXOffset();
  // The height of the title band.
  static int titleBandHeight();

  Zo::Box<int> getUserArea() const override;

protected:
  void draw(CanvasRenderer& renderer) override;
  // Whether the title band is there: a title, or a group drawn with one.
  virtual bool hasTitleBand() const { return !title_.empty(); }
  virtual Colour titleColour() const;
  virtual Glib::FontDesc titleFont() const;
  // Room kept before the title text, inside the band.
  virtual int titleIndent() const;
  // The title band's box, in this widget's coordinates.
  Zo::Box<int> titleBand() const;
  // Draws the title and the separator; the frame only while `framed`.
  void drawTitleAndSeparator(CanvasRenderer& renderer, bool framed);

private:
  UIString title_;
  int separatorStyle_;
};

// A group whose title colour and font can be chosen.
class ZO_API WidgetGroupEx : public WidgetGroup {
public:
  struct InitArgs : WidgetGroup::InitArgs {
    using WidgetGroup::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : WidgetGroup::InitArgs(info) {}
    Colour textColour = Colour::invalid(); // invalid: the palette's heading text
    Glib::FontDesc titleFont;              // empty: UifStd::getSubheadingFont()
  };

  explicit WidgetGroupEx(InitArgs const& args);
  char const* idstring() const override { return "WidgetGroupEx"; }

  void setTextColour(Colour const& colour);
  void setTitleFont(Glib::FontDesc const& font);

protected:
  Colour titleColour() const override;
  Glib::FontDesc titleFont() const override;
  bool hasOwnTextColour() const noexcept { return textColour_.use(); }

private:
  Colour textColour_;
  Glib::FontDesc titleFont_;
};

// A group drawn as a recessed band with its title in the accent colour, for
// sections of a dense panel.
class ZO_API WidgetGroup2 : public WidgetGroupEx {
public:
  // Its rows are drawn on the band: its palette's window is the band colour,
  // from the palette given, else the parent's, else the colour scheme.
  explicit WidgetGroup2(InitArgs const& args);
  char const* idstring() const override { return "WidgetGroup2"; }

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;
  Colour titleColour() const override;
};

// What a minimizable group tells its listeners.
struct MinimizableGroupEvent {
  enum eKind : int { kFolded = 1, kUnfolded = 2 };
  int kind = kFolded;
};

// A group that folds to its title band and unfolds again, by a click on the
// band or by Space or Return while it has the focus. Folding hides its rows
// and shrinks it, so its parent re-flows and what is placed below moves up;
// unfolding puts both back.
class ZO_API MinimizableGroup : public WidgetGroupEx, public Broadcaster<MinimizableGroupEvent> {
public:
  using InitArgs = WidgetGroupEx::InitArgs;

  // Starts unfolded: fold it with setMinimized once its rows are added.
  explicit MinimizableGroup(InitArgs const& args);
  char const* idstring() const override { return "MinimizableGroup"; }

  void setMinimized(bool minimized);
  bool isMinimized() const noexcept { return minimized_; }
  void toggle() { setMinimized(!minimized_); }
  // The height the group has when unfolded.
  int getExpandedHeight() const noexcept { return minimized_ ? expandedHeight_ : height(); }

  // While folded, a new height is kept for the next unfolding.
  void resize(double width, double height) override;
  int react(Event const& event) override;
  void handleKbdFocus(bool gained) override;

protected:
  void draw(CanvasRenderer& renderer) override;
  bool hasTitleBand() const override { return true; }
  int titleIndent() const override;

private:
  int expandedHeight_ = 0;
  bool minimized_ = false;
  std::vector<Glob*> hiddenByFolding_;
};
