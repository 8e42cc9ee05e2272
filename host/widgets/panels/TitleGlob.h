#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/Glob.h>

// A row with a legend on the left and one child widget on the right: the
// base of titled widgets. The child is placed at the right edge, centred
// vertically; the legend fills what is left of it.
class ZO_API TitleGlob : public Glob {
public:
  // What a resize does to the child.
  enum eResizeBehaviour : int {
    kChildTakesChange = 0, // the child widens and narrows with the row
    kChildKeepsSize = 1,   // the child keeps its size; the legend's room changes
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    UIString legend;
    Glib::FontDesc font; // empty: UifStd::getFont()
  };

  explicit TitleGlob(InitArgs const& args);
  char const* idstring() const override { return "TitleGlob"; }

  // Makes `child` the titled widget, taking it as a child placed at the right
  // edge if it isn't one already.
  void setChildGlob(Glob* child);
  // Null once the child is gone.
  Glob* getChildGlob() const noexcept { return isChildGlob(child_) ? child_ : nullptr; }
  void setResizeBehaviour(int behaviour) { resizeBehaviour_ = behaviour; }
  int getResizeBehaviour() const noexcept { return resizeBehaviour_; }
  // The palette the titled child is given: this row's, as a child box.
  Palette getWidgetPalette() const;

  void setLegend(UIString const& legend);
  UIString const& getLegend() const noexcept { return legend_; }
  Glib::FontDesc getFont() const;
  // The room the legend needs: its text width and a widget gap after it.
  int legendWidth() const;
  // The same for any legend, in the default font.
  static int calcLegendWidth(UIString const& legend);

  void resize(double width, double height) override;
  void removeWidget(Glob* child) override;
  // The titled widget goes with its legend: an inactive row takes no input.
  void setActive(bool active, eRedrawFlag redraw) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  UIString legend_;
  Glib::FontDesc font_;
  Glob* child_ = nullptr;
  int resizeBehaviour_ = kChildTakesChange;
};
