#pragma once

#include <zowidgets/hints/Hint.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>
#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/popups/StatusMessage.h>

#include <vector>

class LinkButton;

// Shows one hint in a small tip window beside the control it is about, with
// an OK button that acknowledges it (Hint::setIssued) and, when the hint has
// one, a link. Only one hint window exists at a time: making one removes the
// one on show.
//
// The window closes by itself, without acknowledging, when its control or
// that control's window moves, is resized, is hidden or is deleted, and when
// any other window comes into use (shown, or clicked), tooltips excepted so
// that a tooltip may appear over it. Escape closes it too.
class ZO_API HintWindow : public StatusMessage {
public:
  struct InitArgs : StatusMessage::InitArgs {
    // Sized for the hint's text and link, with the tip towards the sibling
    // of a sibling position (none for other positions).
    InitArgs(Hint const& hint, WidgetPosition const& position);
    Hint hint;
    WidgetPosition position;
  };

  explicit HintWindow(InitArgs const& args);
  char const* idstring() const override { return "HintWindow"; }

  // Removes the window on show and opens one for `hint` at `position`: beside
  // the sibling of a sibling position, or where the toolkit places windows of
  // that position. Shows the hint whether or not it has been issued; asking
  // is the caller's part.
  static HintWindow* make(Hint const& hint, WidgetPosition position);
  // Where make puts the window (`flags` as StatusMessage's): beside the
  // sibling, as a screen point (BottomLeft); otherwise the position itself,
  // Centre when its coordinates are unset. Without a sibling, a widget named
  // "trash" overrides both: the window goes 40 right of its left edge and 25
  // above its top edge.
  static WidgetPosition calcPosition(Hint const& hint, WidgetPosition const& position, unsigned flags);
  // The room round a hint's text: a widget gap beside it, a widget gap and
  // an indent above and below.
  static XY<int> hintSpacing();
  // The outer size of a window for `hint` with its tip on that side; with
  // kOkButton its footer holds the OK button and the link.
  static XY<int> calcSize(Hint const& hint, eWidgetRelativity relativity, unsigned flags = kOkButton);
  // Closes the window on show, if any; harmless when there is none.
  static void remove();
  // For the application's exit: removes the window on show.
  static void shutdown();
  // The window on show, or null.
  static HintWindow* showing();

  // Acknowledges the hint, then closes.
  void handleOkPressed() override;
  // Closes the window on the events that make it stale (see the class
  // comment); always 0.
  int handleGlobEvents(GlobManagerEvent const& event);

  Hint const& getHint() const noexcept { return hint_; }
  // The widget the window is placed against (null for none) and its window.
  Glob* getSibling() const noexcept { return sibling_; }
  Glob* getTopLevel() const noexcept { return topLevel_; }
  LinkButton* getLinkButton() const noexcept { return link_; }

private:
  void closeUnacknowledged();

  // The window on show, dropped by its stamp once it has gone.
  static GlobHandle lastHintWindow_;

  Hint hint_;
  std::vector<Zo::Ptr<Zo::Guard>> guards_;
  Glob* sibling_ = nullptr;
  Glob* topLevel_ = nullptr;
  LinkButton* link_ = nullptr;
};
