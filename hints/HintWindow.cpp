#include <zowidgets/hints/HintWindow.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/StateSaver.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <algorithm>

namespace {

// The well-known widget a hint without a sibling goes above, and where.
constexpr char const* kTrashName = "trash";
constexpr int kRightOfTrash = 40;
constexpr int kAboveTrash = 25;

// A position that names a screen point rather than asking the toolkit to
// place the window.
bool isScreenPoint(WidgetPosition const& position) {
  return (position.kind == WidgetPosition::kBottomLeft || position.kind == WidgetPosition::kAbsolute) &&
         !XY<int>(position.x, position.y).isUnset();
}

Glob* liveSibling(WidgetPosition const& position) {
  return is_good_glob_ptr(position.sibling) ? position.sibling : nullptr;
}

// Where the toolkit puts a window of `args.size` for a position that is no
// screen point.
XY<int> toolkitPlace(HintWindow::InitArgs const& args, WidgetPosition const& placed) {
  return placed.kind == WidgetPosition::kPanelDefault ? glib_getPosForPanel(nullptr, args.size)
                                                      : GlobManager::calcPosForGlob(args, placed);
}

} // namespace

GlobHandle HintWindow::lastHintWindow_;

HintWindow::InitArgs::InitArgs(Hint const& hint, WidgetPosition const& position)
    : StatusMessage::InitArgs(hint.getText(), TipWindowBase::relativityFor(position), StatusMessage::kOkButton),
      hint(hint), position(position) {
  spacing = hintSpacing();
  size = HintWindow::calcSize(hint, relativity);
}

// The host's indent is narrower than its widget gap: an indent alone would
// crowd the text and the OK button against the frame.
XY<int> HintWindow::hintSpacing() {
  return XY<int>(UifStd::getWidgetGap(), UifStd::getWidgetGap() + UifStd::getIndentWidth());
}

XY<int> HintWindow::calcSize(Hint const& hint, eWidgetRelativity relativity, unsigned flags) {
  XY<int> const spacing = hintSpacing();
  XY<int> size = StatusMessage::calcSize(hint.getText(), relativity, flags, spacing);
  if ((flags & kOkButton) && !hint.getLink().empty()) {
    // The footer holds OK on the left and the link on the right.
    int const footer = okButtonSize().x + UifStd::getWidgetGap() + Button::calcWidth(UIString(hint.getLink()));
    size.x = std::max(size.x, calcSizeFor(XY<int>(footer + 2 * spacing.x, 0), relativity, getDefaultBorder()).x);
  }
  return size;
}

WidgetPosition HintWindow::calcPosition(Hint const& hint, WidgetPosition const& position, unsigned flags) {
  if (position.isSiblingRelative() && position.sibling) {
    XY<int> const size = calcSize(hint, relativityFor(position), flags);
    XY<int> const at = TipWindowBase::calcPosition(position, size);
    return Glob::BottomLeft(at.x, at.y);
  }
  WidgetPosition result = position;
  if (XY<int>(position.x, position.y).isUnset())
    result = Glob::Centre(0, 0);
  if (Glob* trash = GlobManager::find(kTrashName)) {
    XY<int> const at = trash->screenPosition();
    result = Glob::BottomLeft(at.x + kRightOfTrash, at.y + kAboveTrash + trash->height());
  }
  return result;
}

HintWindow* HintWindow::make(Hint const& hint, WidgetPosition position) {
  remove();
  WidgetPosition const placed = calcPosition(hint, position, kOkButton);
  InitArgs args(hint, position);
  // The root position set below is this window's alone.
  Glib::StateSaver savedState;
  Drawable::Suspender holdRedraws;
  XY<int> at = isScreenPoint(placed) ? XY<int>(placed.x, placed.y) : toolkitPlace(args, placed);
  bool const tipAcrossX = args.relativity == kRelativeAbove || args.relativity == kRelativeBelow;
  if (isScreenPoint(placed) && at.y < 0 && tipAcrossX) {
    // It would run off the bottom of the screen: it is lifted onto it, over
    // part of its control, and the tip points at the control's middle.
    if (Glob* sibling = liveSibling(position))
      args.pointerOffset = sibling->screenPosition().x + sibling->width() / 2 - at.x;
    at.y = 0;
  }
  Glob::setupRootPos(nullptr, at);
  auto* window = new HintWindow(args);
  GlobManager::realize(window);
  lastHintWindow_ = GlobHandle(window);
  return window;
}

HintWindow::HintWindow(InitArgs const& args)
    : StatusMessage(args), hint_(args.hint), sibling_(liveSibling(args.position)),
      topLevel_(sibling_ ? sibling_->getRootParent() : nullptr) {
  guards_.push_back(GlobManager::notifier().addListener(
      Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
          new MethodCallback<HintWindow, GlobManagerEvent>(this, &HintWindow::handleGlobEvents)),
      NotifyMsgTypeDictionary::instance().anyType()));
  // Above a modal dialogue the hint must still take its OK.
  if (topLevel_ && GlobManager::isModal(topLevel_))
    GlobManager::addModalGlob(this, topLevel_);
  if (!hint_.getLink().empty()) {
    LinkButton::InitArgs linkArgs(hint_.getLink());
    linkArgs.setPalette(makeWindowPalette(getPalette(), getBaseColour()));
    link_ = createChild<LinkButton>(linkArgs, MarginBottomRight(0, 0));
  }
}

void HintWindow::remove() {
  if (HintWindow* window = showing())
    window->closeUnacknowledged();
  lastHintWindow_.clear();
}

void HintWindow::shutdown() { remove(); }

HintWindow* HintWindow::showing() {
  Glob* window = lastHintWindow_.get();
  return window && !GlobManager::isDeletionPending(window) ? static_cast<HintWindow*>(window) : nullptr;
}

void HintWindow::handleOkPressed() {
  StatusMessage::handleOkPressed();
  hint_.setIssued(true);
}

int HintWindow::handleGlobEvents(GlobManagerEvent const& event) {
  Glob* const glob = event.glob;
  bool stale = false;
  switch (event.kind) {
  case GlobManagerEvent::kMoved:
  case GlobManagerEvent::kResized:
  case GlobManagerEvent::kHidden:
    stale = glob && (glob == sibling_ || glob == topLevel_);
    break;
  case GlobManagerEvent::kActivated:
    stale = glob != this && !(glob && glob->isType(TooltipWindow::kTypeName));
    break;
  case GlobManagerEvent::kWidgetDeleted:
    stale = sibling_ && (glob == sibling_ || isParentedTo(sibling_, glob));
    break;
  default:
    break;
  }
  if (stale)
    closeUnacknowledged();
  return 0;
}

void HintWindow::closeUnacknowledged() {
  guards_.clear();
  close();
}
