#include <zowidgets/containers/SpaceDivider.h>
#include <zowidgets/diagnostics/GlobDetailsView.h>
#include <zowidgets/diagnostics/GlobTreePanel.h>
#include <zowidgets/diagnostics/detail/GlobFacts.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <functional>

namespace {

using WString = LightweightString<wchar_t>;

constexpr unsigned kStandardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;

int treeWidth() { return 16 * UifStd::getRowHeight(); }

void mix(std::size_t& sum, std::size_t value) { sum ^= value + 0x9e3779b97f4a7c15ULL + (sum << 6) + (sum >> 2); }

void addToChecksum(std::size_t& sum, Glob const& widget) {
  IdStamp const& stamp = widget.handlerStamp();
  mix(sum, stamp.low());
  mix(sum, stamp.high());
  mix(sum, static_cast<std::size_t>(widget.width()));
  mix(sum, static_cast<std::size_t>(widget.height()));
  mix(sum, widget.isVisible() ? 1 : 2);
  mix(sum, widget.getChildren().size());
  for (Glob const* child : widget.getChildren())
    addToChecksum(sum, *child);
}

iTreeViewAdaptor::Item itemFor(Glob const& widget) {
  iTreeViewAdaptor::Item item;
  item.id = GlobTreePanel::idOf(widget);
  item.text = UIString(WString(GlobFacts::typeName(widget).str() + L", " + std::to_wstring(widget.width()) + L", " +
                               std::to_wstring(widget.height())));
  return item;
}

} // namespace

GlobTreePanel* GlobTreePanel::create() {
  Drawable::Suspender holdRedraws;
  XY<int> const size = calcSize();
  Glob::setupRootPos(nullptr, glib_getPosForPanel(nullptr, size));
  auto* panel = new GlobTreePanel(InitArgs(GlobCreationInfo(size)));
  GlobManager::realize(panel);
  return panel;
}

XY<int> GlobTreePanel::calcSize() {
  XY<int> const details = GlobDetailsView::calcSize();
  XY<int> const userArea(treeWidth() + Splitter::calcThickness() + details.x, details.y);
  return StandardPanel::calcPanelSize(userArea, kStandardWidgets, StandardPanel::getDefaultBorder());
}

GlobTreePanel::GlobTreePanel(InitArgs const& args) : MessageBase(args) {
  setPersistable(false);
  setTitle(UIString(kTitleText), UifStd::getTitleFont(), kNoRedraw);
  addStandardWidgets(kStandardWidgets);
  makeDivision();
  tree_->addListener(TreeView::makeCallback(this, &GlobTreePanel::handleTreeEvent));
  windowsGuard_ = GlobManager::notifier().addListener(
      Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
          new MethodCallback<GlobTreePanel, GlobManagerEvent>(this, &GlobTreePanel::handleWindowEvent)),
      NotifyMsgTypeDictionary::instance().anyType());
  shownChecksum_ = checksum();
  setInterest(kTimerInterest);
}

GlobTreePanel::~GlobTreePanel() = default;

void GlobTreePanel::makeDivision() {
  XY<int> const area = getUserArea().getDimensions();
  SpaceDivider::InitArgs dividerArgs(area, kSideBySide, static_cast<float>(treeWidth()) / static_cast<float>(area.x));
  dividerArgs.setBorder(Border());
  auto* divider = createWidget<SpaceDivider>(dividerArgs, UserTopLeft(0, 0));
  TreeView::InitArgs treeArgs(area);
  treeArgs.adaptor = this;
  treeArgs.setBorder(Border());
  treeArgs.useParentAllotment = true;
  tree_ = divider->createWidgetX<TreeView>(treeArgs, SpaceDivider::kFirstWidget);
  GlobCreationInfo detailsArgs(area);
  detailsArgs.useParentAllotment = true;
  details_ = divider->createWidgetX<GlobDetailsView>(detailsArgs, SpaceDivider::kSecondWidget);
}

WString GlobTreePanel::idOf(Glob const& widget) { return GlobFacts::stampText(widget.handlerStamp()); }

Glob* GlobTreePanel::widgetOf(WString const& id) {
  IdStamp const stamp = GlobFacts::stampFromText(id);
  return stamp.valid() ? GlobManager::find(stamp) : nullptr;
}

std::vector<iTreeViewAdaptor::Item> GlobTreePanel::getChildItems(WString const& parentId) const {
  std::vector<Item> items;
  if (parentId.empty()) {
    for (Glob* window : GlobManager::topLevelWindows())
      if (window != this)
        items.push_back(itemFor(*window));
    return items;
  }
  if (Glob const* parent = widgetOf(parentId))
    for (Glob const* child : parent->getChildren())
      items.push_back(itemFor(*child));
  return items;
}

bool GlobTreePanel::hasChildItems(WString const& id) const {
  Glob const* widget = widgetOf(id);
  return widget && !widget->getChildren().empty();
}

std::size_t GlobTreePanel::checksum() const {
  std::size_t sum = 0;
  for (Glob* window : GlobManager::topLevelWindows())
    if (window != this)
      addToChecksum(sum, *window);
  return sum;
}

bool GlobTreePanel::refreshIfChanged() {
  std::size_t const now = checksum();
  if (now == shownChecksum_)
    return false;
  shownChecksum_ = now;
  tree_->refresh(1);
  // The selected widget may have gone with the change.
  details_->setTarget(widgetOf(tree_->getSelectedItem()));
  return true;
}

void GlobTreePanel::handleTimerEvent() { refreshIfChanged(); }

int GlobTreePanel::handleTreeEvent(TreeViewEvent const& event) {
  if (event.type == TreeViewEvent::kSelection)
    details_->setTarget(widgetOf(event.id));
  return 0;
}

int GlobTreePanel::handleWindowEvent(GlobManagerEvent const& event) {
  // Windows made and closed change the tree; moves, presses and widgets
  // inside windows are the timer's to notice.
  bool const windowsChanged = event.kind == GlobManagerEvent::kRealized || event.kind == GlobManagerEvent::kDeleted;
  if (!windowsChanged || event.glob == this)
    return 0;
  // A window being destroyed is half gone now: the tree is asked after.
  IdStamp const stamp = handlerStamp();
  deferUnique(
      [this, stamp] {
        if (EventHandler::valid(this, stamp))
          refreshIfChanged();
      },
      "GlobTreePanelWindows");
  return 0;
}
