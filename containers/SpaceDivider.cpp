#include <zowidgets/containers/SpaceDivider.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace {

constexpr int kDiscreetLineShade = -3;

float clampFraction(float fraction) {
  if (!(fraction >= 0.0f)) // NaN too
    return 0.0f;
  return std::min(fraction, 1.0f);
}

// Lengths come in as 16-bit values, as the toolkit's sizes are.
int asLength(double value) { return std::clamp(static_cast<int>(value), 0, int(UINT16_MAX)); }

} // namespace

class SpaceDivider::SizingChildren {
public:
  explicit SizingChildren(SpaceDivider& divider) : divider_(divider), was_(divider.sizingChildren_) {
    divider_.sizingChildren_ = true;
  }
  ~SizingChildren() { divider_.sizingChildren_ = was_; }
  SizingChildren(SizingChildren const&) = delete;
  SizingChildren& operator=(SizingChildren const&) = delete;

private:
  SpaceDivider& divider_;
  bool was_;
};

SpaceDivider::SpaceDivider(InitArgs const& args)
    : OccludedChildWidget(args), orientation_(args.orientation == kStacked ? kStacked : kSideBySide),
      configuredAxis_(orientation_), splitPosition_(clampFraction(args.splitPosition)) {
  if (!args.config.in(kDividerIDKey))
    return;
  switch (getWidgetIDFromString(toNarrow(args.config.getString(kDividerIDKey)))) {
  case kTopWidget:
  case kBottomWidget:
    configuredAxis_ = kStacked;
    break;
  case kLeftWidget:
  case kRightWidget:
    configuredAxis_ = kSideBySide;
    break;
  case kNoWidget:
    break;
  }
}

// --- Names of the two places ---------------------------------------------

SpaceDivider::eWidgetID SpaceDivider::getWidgetID(eWidgetIndex index) const {
  if (isSideBySide())
    return index == kFirstWidget ? kLeftWidget : kRightWidget;
  return index == kFirstWidget ? kTopWidget : kBottomWidget;
}

SpaceDivider::eWidgetIndex SpaceDivider::getIndex(int id) { return (id & ~2) != 1 ? kSecondWidget : kFirstWidget; }

SpaceDivider::eWidgetID SpaceDivider::getWidgetIDFromString(std::string_view text) {
  for (eWidgetID id : {kLeftWidget, kRightWidget, kTopWidget, kBottomWidget})
    if (text == asString(id))
      return id;
  return kNoWidget;
}

char const* SpaceDivider::asString(int id) {
  switch (id) {
  case kLeftWidget:
    return "left";
  case kRightWidget:
    return "right";
  case kTopWidget:
    return "top";
  case kBottomWidget:
    return "bottom";
  default:
    return "";
  }
}

// --- Children --------------------------------------------------------------

Glob* SpaceDivider::getWidget(eWidgetIndex index) const { return widgets_[index]; }

int SpaceDivider::indexOf(Glob const* widget) const {
  if (!widget)
    return -1;
  for (int index : {kFirstWidget, kSecondWidget})
    if (widgets_[index] == widget)
      return index;
  return -1;
}

bool SpaceDivider::isFree(eWidgetIndex index) const {
  return (index == kFirstWidget || index == kSecondWidget) && !widgets_[index];
}

bool SpaceDivider::bothShowing() const {
  return widgets_[0] && widgets_[1] && widgets_[0]->isVisible() && widgets_[1]->isVisible();
}

XY<int> SpaceDivider::withLength(XY<int> size, int length) const noexcept {
  return isSideBySide() ? XY<int>(length, size.y) : XY<int>(size.x, length);
}

XY<int> SpaceDivider::calcNewWidgetSize(GlobCreationInfo const& info, eWidgetIndex index) const {
  if (info.useParentAllotment)
    return calcWidgetSize(index);
  Zo::Box<int> const user = getUserArea();
  return XY<int>(user.width(), user.height());
}

Glob* SpaceDivider::createWidgetX(GlobCreationInfo const& info, eWidgetIndex index) {
  if (!isFree(index))
    return nullptr;
  GlobCreationInfo sized(info);
  sized.size = calcNewWidgetSize(info, index);
  sized.setParent(this);
  Glob* made = GlobManager::createGlob(sized);
  if (made)
    adoptWidget(made, index, sized.size);
  return made;
}

void SpaceDivider::adoptWidget(Glob* widget, eWidgetIndex index, XY<int> asked) {
  // The two corners hold whichever children are there; the splitter, made
  // once both are, goes between them.
  addChild(widget, index == kFirstWidget ? UserTopLeft(0, 0) : UserBottomRight(0, 0));
  widget->setResizable(false);
  widgets_[index] = widget;
  shown_[index] = widget->isVisible();
  createSplitter();
  if (splitter_ && splitter_->isVisible() && (widget->width() > asked.x || widget->height() > asked.y))
    setSplitPosFromWidget(index);
}

void SpaceDivider::createSplitter() {
  if (splitter_ || !widgets_[0] || !widgets_[1])
    return;
  Glob* first = widgets_[kFirstWidget];
  Glob* second = widgets_[kSecondWidget];
  Zo::Box<int> const user = getUserArea();
  int const across = isSideBySide() ? user.height() : user.width();
  auto const callback = Broadcaster<SplitterEvent>::makeCallback(this, &SpaceDivider::handleSplitterEvent);
  Splitter* made = nullptr;
  if (splitterType_ == kDiscreetSplitter) {
    DiscreetSplitter::InitArgs args(orientation_, across);
    args.callback = callback;
    Palette const& palette = getPalette();
    args.setPalette(makeWindowPalette(palette, palette.window(kDiscreetLineShade)));
    made = createChild<DiscreetSplitter>(args, isSideBySide() ? DiscreetSplitter::LeftOf(second)
                                                              : DiscreetSplitter::Below(first));
  } else {
    Splitter::InitArgs args(orientation_, across);
    args.callback = callback;
    made = createChild<Splitter>(args, isSideBySide() ? RightOf(0, first) : Above(0, second));
  }
  // Before the bar: the left child, or the bottom one when stacked.
  made->setNeighbours(isSideBySide() ? first : second, isSideBySide() ? second : first);
  splitter_ = made;
  if (!bothShowing()) {
    SizingChildren sizing(*this);
    splitter_->setVisible(false);
  }
}

void SpaceDivider::destroyWidget(eWidgetIndex index, eRedrawFlag redraw) {
  if (index != kFirstWidget && index != kSecondWidget)
    return;
  Glob* widget = widgets_[index];
  if (!widget)
    return;
  {
    SizingChildren sizing(*this);
    widgets_[index] = nullptr;
    if (splitter_)
      removeWidget(std::exchange(splitter_, nullptr));
    removeWidget(widget);
  }
  if (redraw == kRedrawNow) {
    resize(width(), height());
    invalidate();
  }
}

// --- Sizes -----------------------------------------------------------------

int SpaceDivider::calcSplitterThickness() const {
  return splitterType_ != kStandardSplitter ? DiscreetSplitter::getVisibleThickness() : Splitter::calcThickness();
}

bool SpaceDivider::hasMinWidth(eWidgetIndex index) const {
  return widgets_[index] && widgets_[index]->getMinSize().x != 0;
}
bool SpaceDivider::hasMinHeight(eWidgetIndex index) const {
  return widgets_[index] && widgets_[index]->getMinSize().y != 0;
}
bool SpaceDivider::hasMaxWidth(eWidgetIndex index) const {
  return widgets_[index] && widgets_[index]->getMaxSize().x != 0;
}
bool SpaceDivider::hasMaxHeight(eWidgetIndex index) const {
  return widgets_[index] && widgets_[index]->getMaxSize().y != 0;
}

XY<int> SpaceDivider::calcMinSize() const {
  int const row = UifStd::getRowHeight();
  auto minimumOf = [row](Glob const* widget) {
    if (!widget || !widget->isVisible())
      return XY<int>(0, 0);
    XY<int> const own = widget->getMinSize();
    return XY<int>(own.x != 0 ? own.x : row, own.y != 0 ? own.y : row);
  };
  XY<int> const first = minimumOf(widgets_[0]);
  XY<int> const second = minimumOf(widgets_[1]);
  int const t = calcSplitterThickness();
  if (isSideBySide())
    return XY<int>(first.x + second.x + t, std::max(first.y, second.y));
  return XY<int>(std::max(first.x, second.x), first.y + second.y + t);
}

XY<int> SpaceDivider::calcWidgetSize(eWidgetIndex index) const {
  Zo::Box<int> const user = getUserArea();
  return calcWidgetSize(XY<int>(user.width(), user.height()), index);
}

XY<int> SpaceDivider::calcWidgetSize(XY<int> const& size, eWidgetIndex index) const {
  Glob const* own = widgets_[index];
  Glob const* other = widgets_[1 - index];
  bool const both = own && other;
  if (both && !bothShowing())
    return own->isVisible() ? getSize() : XY<int>(0, 0);

  int const total = std::max(asLength(lengthOf(size)) - calcSplitterThickness(), 0);
  int const fractionShare = static_cast<int>(static_cast<unsigned>(static_cast<float>(total) * splitPosition_));
  // The fraction runs from the left, or from the bottom when stacked.
  eWidgetIndex const measured = isSideBySide() ? kFirstWidget : kSecondWidget;
  int const ownShare = index == measured ? fractionShare : total - fractionShare;
  int const otherShare = total - ownShare;
  int length = ownShare;
  if (both) {
    // In this order, so that the other child's minimum has the last word.
    int const ownMinimum = lengthOf(own->getMinSize());
    int const ownMaximum = lengthOf(own->getMaxSize());
    int const otherMinimum = lengthOf(other->getMinSize());
    int const otherMaximum = lengthOf(other->getMaxSize());
    if (ownMinimum != 0)
      length = std::max(length, ownMinimum);
    if (ownMaximum != 0)
      length = std::min(length, ownMaximum);
    if (otherMaximum != 0 && otherShare > otherMaximum)
      length = total - otherMaximum;
    if (otherMinimum != 0 && otherShare < otherMinimum)
      length = total - otherMinimum;
  }
  return withLength(size, length);
}

void SpaceDivider::setSplitPos(float position) {
  splitPosition_ = clampFraction(position);
  resize(width(), height());
}

void SpaceDivider::setSplitPosFromWidget(eWidgetIndex index) { setWidgetPos(widgets_[index], XY<int>(0, 0)); }

void SpaceDivider::setWidgetPos(Glob* widget, XY<int>) {
  int const index = indexOf(widget);
  if (index < 0)
    return;
  Glob* other = widgets_[1 - index];
  Zo::Box<int> const user = getUserArea();
  int const whole = lengthOf(XY<int>(user.width(), user.height()));
  int const t = calcSplitterThickness();
  int const available = whole - t;
  {
    SizingChildren sizing(*this);
    if (other) {
      other->setDimensions(withLength(other->getSize(), available - lengthOf(widget->getSize())));
      // A child that will not go so small keeps its length; the named one
      // gives way.
      if (lengthOf(other->getSize()) > available - lengthOf(widget->getSize()))
        widget->setDimensions(withLength(widget->getSize(), available - lengthOf(other->getSize())));
    }
  }
  if (whole <= 0)
    return;
  float const share = static_cast<float>(t / 2 + lengthOf(widget->getSize())) / static_cast<float>(whole);
  bool const measuredFromStart = (index == kFirstWidget) == isSideBySide();
  splitPosition_ = measuredFromStart ? share : 1.0f - share;
}

void SpaceDivider::resize(double newWidth, double newHeight) {
  SizingChildren sizing(*this);
  if (unsigned flags = getResizeDirection(); flags != 0) {
    // The divider's own moving edges across the split axis pass to both
    // children; those along it are shared out by the split.
    flags &= isSideBySide() ? ~(kResizeLeft | kResizeRight) : ~(kResizeBottom | kResizeTop);
    for (Glob* widget : widgets_)
      if (widget)
        widget->setResizeDirection(flags);
  }
  if (!bothShowing()) {
    OccludedChildWidget::resize(newWidth, newHeight);
    Glob* first = widgets_[kFirstWidget];
    Glob* shown = !first || !first->isVisible() ? widgets_[kSecondWidget] : first;
    if (shown) {
      Zo::Box<int> const user = getUserArea();
      shown->setDimensions(XY<int>(user.width(), user.height()));
    }
  } else {
    Zo::Box<int> const user = getUserArea();
    XY<int> const margins(width() - user.width(), height() - user.height());
    resizeBoth(XY<int>(asLength(newWidth - margins.x), asLength(newHeight - margins.y)), margins);
  }
  setChildFlags(0);
  layoutChildren();
  invalidate();
}

// The panel takes what the children accepted: its cross length from the
// first child, and the split is read back from their lengths.
void SpaceDivider::resizeBoth(XY<int> contents, XY<int> margins) {
  Glob* first = widgets_[kFirstWidget];
  Glob* second = widgets_[kSecondWidget];
  first->setDimensions(calcWidgetSize(contents, kFirstWidget));
  second->setDimensions(calcWidgetSize(contents, kSecondWidget));
  int const t = calcSplitterThickness();
  if (isSideBySide()) {
    OccludedChildWidget::resize(contents.x + margins.x, first->height() + margins.y);
    splitter_->setDimensions(XY<int>(splitter_->width(), getUserArea().height()));
    float const available = static_cast<float>(width() - t - margins.x);
    if (available > 0 && first->width() != static_cast<int>(static_cast<unsigned>(splitPosition_ * available)))
      splitPosition_ = static_cast<float>(first->width()) / available;
  } else {
    OccludedChildWidget::resize(first->width() + margins.x, contents.y + margins.y);
    splitter_->setDimensions(XY<int>(getUserArea().width(), splitter_->height()));
    float const available = static_cast<float>(height() - (margins.y + t));
    if (available > 0)
      splitPosition_ = static_cast<float>(second->height()) / available;
  }
}

// --- Visibility --------------------------------------------------------------

void SpaceDivider::setWidgetVisible(Glob* child, bool visible) {
  int const index = indexOf(child);
  if (index < 0 || (child->isVisible() == visible && shown_[index] == visible))
    return;
  {
    SizingChildren sizing(*this);
    child->setVisible(visible);
  }
  followVisibility(static_cast<eWidgetIndex>(index));
}

void SpaceDivider::followVisibility(eWidgetIndex index) {
  Glob* child = widgets_[index];
  Glob* other = widgets_[1 - index];
  bool const visible = child->isVisible();
  shown_[index] = visible;
  XY<int> const size = getSize();
  if (splitter_) {
    SizingChildren sizing(*this);
    splitter_->setVisible(bothShowing());
  }
  if (configuredAxis_ != orientation_) {
    // The panel keeps its size; the other child takes over the space.
    resize(size.x, size.y);
    return;
  }
  int length = lengthOf(size);
  if (!visible && other)
    length = lengthOf(other->getSize());
  else if (visible)
    length += lengthOf(child->getSize()) + calcSplitterThickness();
  // Resizing tells the parent, so that it can make room.
  XY<int> const grown = withLength(size, length);
  resize(grown.x, grown.y);
}

void SpaceDivider::handleChildResize(Glob* child) {
  int const index = indexOf(child);
  if (sizingChildren_ || index < 0) {
    OccludedChildWidget::handleChildResize(child);
    return;
  }
  if (child->isVisible() != shown_[index]) {
    followVisibility(static_cast<eWidgetIndex>(index));
    return;
  }
  setSplitPosFromWidget(static_cast<eWidgetIndex>(index));
  layoutChildren();
  invalidate();
}

// --- The splitter ------------------------------------------------------------

unsigned SpaceDivider::movingEdge(eWidgetIndex index) const noexcept {
  if (isSideBySide())
    return index == kFirstWidget ? kResizeRight : kResizeLeft;
  return index == kFirstWidget ? kResizeBottom : kResizeTop;
}

void SpaceDivider::setChildFlags(unsigned both) { setChildFlags(both, both); }

void SpaceDivider::setChildFlags(unsigned first, unsigned second) {
  if (widgets_[kFirstWidget])
    widgets_[kFirstWidget]->setResizeDirection(first);
  if (widgets_[kSecondWidget])
    widgets_[kSecondWidget]->setResizeDirection(second);
}

int SpaceDivider::handleSplitterEvent(SplitterEvent const& event) {
  switch (event.kind) {
  case SplitterEvent::kBegin:
    setChildFlags(kResizeLive | movingEdge(kFirstWidget), kResizeLive | movingEdge(kSecondWidget));
    break;
  case SplitterEvent::kMove:
    followSplitter(event);
    break;
  case SplitterEvent::kEnd:
    setChildFlags(kResizeFinal | movingEdge(kFirstWidget), kResizeFinal | movingEdge(kSecondWidget));
    resize(width(), height());
    invalidate();
    setChildFlags(0);
    break;
  default:
    break;
  }
  return 0;
}

void SpaceDivider::followSplitter(SplitterEvent const& event) {
  if (!bothShowing())
    return;
  Drawable::Suspender holdRedraws;
  int const t = calcSplitterThickness();
  int const half = t / 2;
  // A drag follows the pointer itself; a key gives the bar's new place,
  // whose middle stands where the pointer would.
  int along = event.position + half;
  if (splitter_ && splitter_->isDragging())
    along = lengthOf(glib_getMousePos() - screenPosition());
  Zo::Box<int> const user = getUserArea();
  int const extent = lengthOf(XY<int>(user.width(), user.height()));
  int const travelled = std::max(std::min(extent - t, std::max(half, along)) - half, 0);
  // Stacked, the fraction is of the panel's whole height.
  int const available = isSideBySide() ? extent - t : height() - t;
  if (available <= 0)
    return;
  unsigned const firstFlags = widgets_[kFirstWidget]->getResizeDirection();
  unsigned const secondFlags = widgets_[kSecondWidget]->getResizeDirection();
  splitPosition_ = static_cast<float>(travelled) / static_cast<float>(available);
  resize(width(), height());
  setChildFlags(firstFlags & ~kResizeLive, secondFlags & ~kResizeLive);
  setSplitPosFromWidget(kFirstWidget);
  invalidate();
}

// --- Looks -------------------------------------------------------------------

void SpaceDivider::drawBackground(CanvasRenderer& renderer) {
  if (widgets_[0] && widgets_[1])
    return;
  // Nothing covers it yet: paint as a plain panel does.
  StandardPanel::drawBackground(renderer);
}

void SpaceDivider::setPalette(Palette const& palette) {
  OccludedChildWidget::setPalette(palette);
  if (splitter_)
    splitter_->setPalette(palette);
}
