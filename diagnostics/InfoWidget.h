#pragma once

#include <zowidgets/diagnostics/GlobProbe.h>
#include <zowidgets/diagnostics/LabelledLine.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobManager.h>

// One row of a GlobInspector: three lines about one widget, its type; its
// size and position, with " (heavy)" for a widget with a window of its own;
// its border, shadow, title and visibility. Its right-click menu changes
// those on the widget, and a left click toggles a highlight over it on the
// screen. The widget is held by its stamp: a row whose widget has gone draws
// nothing of it and changes nothing.
class ZO_API GlobInspector::InfoWidget : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    Glob* target = nullptr;
  };

  explicit InfoWidget(InitArgs const& args);
  ~InfoWidget() override;
  char const* idstring() const override { return "InfoWidget"; }

  static int calcHeight();
  // The width the lines about `target` need.
  static int calcWidth(Glob const& target);

  Glob* getTarget() const { return target_.get(); }
  bool isHighlighted() const noexcept { return highlight_.isLive(); }
  // What the lines say, for the widget as it is now; empty once it has gone.
  std::vector<LabelledLine> describe() const;

  int react(Event const& event) override;
  void reviewMenu(Event const* event) override;
  // A left click (a press and release of the left button alone) toggles the
  // highlight.
  int handleMouseEvent(Event const& event) override;

  // What the menu's rows do. Border and shadow go to the target's top-level
  // panel when that is a StandardPanel, else to the target itself; the
  // standard widgets and visibility to the target.
  void handleBorderChangeRequest(int style);
  void handleShadowChangeRequest(bool shadow);
  void handleWidgetChangeRequest(unsigned standardWidget);
  void handleVisChangeRequest(bool visible);

  void setHighlighted(bool on);

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  Glob* panelConcerned() const;
  // Lays the changed widget out again and shows the change at once, here too.
  void showChange(Glob* changed);

  int handleWindowChange(GlobManagerEvent const& event);

  GlobHandle target_;
  Zo::Ptr<Zo::Guard> windowGuard_;
  Palette savedPalette_;
  bool hadOwnPalette_ = false;
  GlobHandle highlight_;
  bool leftPressed_ = false;
};
