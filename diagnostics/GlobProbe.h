#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

#include <vector>

// A floating developer tool that examines the live widget tree of every
// window. Its hot spot is its bottom-left corner, marked by a small
// triangle: drag the inspector by its title so that the corner lies over a
// widget, then press the left and right buttons together on it (a chord).
// It shows the widget under the hot spot and, below it, each of that
// widget's ancestors up to its window, one InfoWidget each: type, size,
// position, border. A right click on a row offers changes to that widget, a
// left click highlights it.
//
// The target is held by its stamp, not owned: the inspector checks it each
// time it draws and at each timer tick, and when it has gone the inspector
// empties itself and shrinks to its title; nothing freed is ever touched.
// Its close box or Escape closes it.
class ZO_API GlobInspector : public MessageBase {
public:
  class InfoWidget;

  static constexpr char const* kCommand = "Glob Inspector";
  static constexpr wchar_t const* kTitleText = L"Glob Inspector";

  struct InitArgs : MessageBase::InitArgs {
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : MessageBase::InitArgs(info) {}
    Glob* target = nullptr; // inspected from the start; null for none
  };

  // Opens an inspector with its hot spot at the mouse pointer.
  static GlobInspector* create();
  explicit GlobInspector(InitArgs const& args);
  char const* idstring() const override { return "GlobInspector"; }

  // Shows `target` and its ancestors, or only the title for null. The window
  // keeps its size: fitToTarget() fits it.
  void setTarget(Glob* target);
  // The inspected widget while it lives; null once it has gone.
  Glob* getTarget() const { return target_.get(); }
  // The rows, the target's first, then its parent's and so on up.
  std::vector<InfoWidget*> const& getInfoWidgets() const noexcept { return rows_; }
  // The window's size when inspecting `target` (null: none).
  static XY<int> calcSizeFor(Glob* target);
  // Inspects the widget under the hot spot, looking through this window, and
  // fits the window to it, its bottom-left corner staying where it is.
  void inspectUnderHotSpot();
  void fitToTarget();

  int react(Event const& event) override;
  // The chord (left and right held together) inspects what lies under the
  // hot spot; nothing else is used.
  int handleMouseEvent(Event const& event) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  void handleTimerEvent() override;
  // A tool the user closes when done: its close box, or Escape.
  bool closesOnEscape() const override { return true; }

protected:
  void draw(CanvasRenderer& renderer) override;
  void drawBorder(CanvasRenderer& renderer) override;

private:
  static constexpr char const* kTargetGoneMsg = "GlobInspectorTargetGone";
  bool targetHasGone() const { return target_.stamp().valid() && !target_.isLive(); }

  GlobHandle target_;
  std::vector<InfoWidget*> rows_;
};
