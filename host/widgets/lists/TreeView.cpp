#include <zowidgets/host/widgets/lists/TreeView.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>

#include <algorithm>
#include <cmath>

struct TreeView::Node {
  iTreeViewAdaptor::Item item;
  int depth = -1;
  Node* parent = nullptr;
  std::vector<std::unique_ptr<Node>> children;
  bool loaded = false;
  bool expanded = false;
  // -1 until asked: whether the item can open.
  int openable = -1;
  // Where it stands among its parent's children.
  std::size_t index = 0;
};

namespace {

// The arrows' side in pixels at scale 1, never more than the arrow area.
constexpr int kArrowIconSize = 16;

// One line of the tree. It draws from the tree it belongs to, which drops
// its rows before it goes.
class TreeRow : public Glob {
public:
  TreeRow(TreeView* tree, int index, XY<int> size) : Glob(GlobCreationInfo(size)), tree_(tree), index_(index) {
    setPaintsOpaquely(true);
  }
  char const* idstring() const override { return "TreeRow"; }

  void setLook(bool selected, bool current, bool openable, bool expanded) {
    if (selected == selected_ && current == current_ && openable == openable_ && expanded == expanded_)
      return;
    selected_ = selected;
    current_ = current;
    openable_ = openable;
    expanded_ = expanded;
    invalidate();
  }
  UIString getTooltip() const override {
    iTreeViewAdaptor::Item const* item = tree_->itemAt(index_);
    return item ? item->tooltip.text : UIString();
  }
  int react(Event const& event) override {
    if (event.type == Event::kMouseEnter || event.type == Event::kMouseLeave) {
      hovered_ = event.type == Event::kMouseEnter;
      invalidate();
    }
    return 0; // presses and keys belong to the tree
  }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    ScrollListItemWidget::Look const look = ScrollListItemWidget::lookFor(getPalette());
    Colour ground = selected_ ? look.selected : (hovered_ ? look.hovered : look.background);
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), ground));
    if (current_)
      renderer.renderPrimitive(Glib::RoundedRectDescription(Zo::Box<double>(0.5, 0.5, width() - 0.5, height() - 0.5),
                                                            look.cursorRadius, Colour::invalid(), look.cursorOutline));
  }
  void draw(CanvasRenderer& renderer) override {
    iTreeViewAdaptor::Item const* item = tree_->itemAt(index_);
    if (!item)
      return;
    ScrollListItemWidget::Look const look = ScrollListItemWidget::lookFor(getPalette());
    int const step = TreeView::indentStep();
    bool const flat = tree_->getAppearance() == TreeView::kFlat;
    double x = contentLeft(look) - tree_->sideways().offset();
    Colour const text = item->colour.use() ? item->colour : (selected_ ? look.selectedText : look.text);
    if (!flat) {
      if (openable_)
        drawArrow(renderer, x + step / 2.0, height() / 2.0, text);
      x += step;
    }
    if (!item->icon.empty()) {
      double const side = iconSide();
      double const y = (height() - side) / 2;
      renderer.renderPrimitive(Glib::ImageDescription(item->icon, Zo::Box<double>(x, y, x + side, y + side), 1.0));
      x += side + UifStd::getWidgetGap();
    }
    renderer.renderPrimitive(
        Glib::TextDescription(item->text.getString(), Zo::Box<double>(x, 0, width(), height()), fontOf(*item), text));
  }

public:
  // The arrow, icon and text side by side with a margin each side: how far
  // the sideways scroll must reach to show the whole row.
  int naturalWidth() const {
    iTreeViewAdaptor::Item const* item = tree_->itemAt(index_);
    if (!item)
      return 0;
    ScrollListItemWidget::Look const look = ScrollListItemWidget::lookFor(getPalette());
    double x = contentLeft(look);
    if (tree_->getAppearance() != TreeView::kFlat)
      x += TreeView::indentStep();
    if (!item->icon.empty())
      x += iconSide() + UifStd::getWidgetGap();
    x += Glib::TextDescription::calcBounds(item->text.getString(), fontOf(*item)).width();
    return static_cast<int>(std::ceil(x + look.textIndent / 2.0));
  }

private:
  // Where the arrow area starts, before the sideways scroll.
  double contentLeft(ScrollListItemWidget::Look const& look) const {
    bool const flat = tree_->getAppearance() == TreeView::kFlat;
    return look.textIndent / 2.0 + (flat ? 0 : tree_->depthAt(index_) * TreeView::indentStep());
  }
  double iconSide() const { return height() - 2.0 * UifStd::getIndentWidth(); }
  static Glib::FontDesc fontOf(iTreeViewAdaptor::Item const& item) {
    return item.font.family().empty() && item.font.size() == 0 ? UifStd::getFont() : item.font;
  }

  // The theme's arrow, pointing right when closed and down when open, in the
  // row's text colour at the interface scale; drawn triangles where the
  // theme has no artwork.
  void drawArrow(CanvasRenderer& renderer, double cx, double cy, Colour const& colour) const {
    int const step = TreeView::indentStep();
    int const side = std::min(step, static_cast<int>(std::lround(kArrowIconSize * UifStd::getScale())));
    IconCache::Icon const icon = IconCache::get(expanded_ ? "tree-expanded.png" : "tree-collapsed.png", side, colour);
    if (icon.fromTheme) {
      // On whole pixels, so the artwork stays as sharp as it was drawn.
      XY<double> const corner(std::floor(cx - side / 2.0), std::floor(cy - side / 2.0));
      renderer.renderPrimitive(Glib::ImageDescription(icon.surface, corner));
      return;
    }
    double const r = step / 4.0;
    std::vector<XY<double>> points;
    if (expanded_)
      points = {{cx - r, cy + r * 0.6}, {cx + r, cy + r * 0.6}, {cx, cy - r * 0.8}};
    else
      points = {{cx - r * 0.6, cy + r}, {cx - r * 0.6, cy - r}, {cx + r * 0.8, cy}};
    renderer.renderPrimitive(Glib::TriangleFanDescription{points, {colour}});
  }

  TreeView* tree_;
  int index_;
  bool selected_ = false;
  bool current_ = false;
  bool openable_ = false;
  bool expanded_ = false;
  bool hovered_ = false;
};

constexpr int kSpaceKey = ' ';

} // namespace

TreeView::TreeView(InitArgs const& args)
    : VirtualRowsBase(args, UifStd::getRowHeight()), adaptor_(args.adaptor), root_(std::make_unique<Node>()),
      appearance_(args.appearance) {
  refresh(0);
}

TreeView::~TreeView() = default;

int TreeView::indentStep() { return UifStd::getRowHeight() * 3 / 4; }

void TreeView::setAdaptor(iTreeViewAdaptor* adaptor) {
  adaptor_ = adaptor;
  refresh(0);
}

TreeView::Node& TreeView::childOf(Node& parent, std::size_t index) const {
  std::unique_ptr<Node>& slot = parent.children[index];
  if (!slot) {
    slot = std::make_unique<Node>();
    slot->item = adaptor_->getChildItem(parent.item.id, index);
    slot->depth = parent.depth + 1;
    slot->parent = &parent;
    slot->index = index;
  }
  return *slot;
}

TreeView::Node& TreeView::nodeAt(int row) const { return childOf(*visible_[row].parent, visible_[row].index); }

void TreeView::loadChildren(Node& node) {
  if (node.loaded)
    return;
  node.loaded = true;
  node.children.clear();
  if (!adaptor_)
    return;
  // Counted children stay empty slots until they are needed.
  if (std::optional<std::size_t> const count = adaptor_->getChildCount(node.item.id)) {
    node.children.resize(*count);
  } else {
    std::vector<iTreeViewAdaptor::Item> items = adaptor_->getChildItems(node.item.id);
    node.children.reserve(items.size());
    for (iTreeViewAdaptor::Item& item : items) {
      auto child = std::make_unique<Node>();
      child->item = std::move(item);
      child->depth = node.depth + 1;
      child->parent = &node;
      child->index = node.children.size();
      node.children.push_back(std::move(child));
    }
  }
  node.openable = node.children.empty() ? 0 : 1;
}

bool TreeView::hasChildren(Node& node) const {
  if (node.openable < 0)
    node.openable = node.loaded ? !node.children.empty() : (adaptor_ && adaptor_->hasChildItems(node.item.id));
  return node.openable == 1;
}

void TreeView::collectShown(Node& node, std::vector<Shown>& out) const {
  for (std::size_t index = 0; index < node.children.size(); ++index) {
    out.push_back({&node, index});
    // A child with no node yet has never been opened.
    if (Node* child = node.children[index].get(); child && child->expanded)
      collectShown(*child, out);
  }
}

void TreeView::refresh(int keepState) {
  widest_ = 0;
  std::set<std::wstring> opened;
  LightweightString<wchar_t> const selectedId = keepState ? getSelectedItem() : LightweightString<wchar_t>();
  if (keepState)
    for (Shown const& shown : visible_)
      if (Node const* node = shown.parent->children[shown.index].get(); node && node->expanded)
        opened.insert(node->item.id.str());
  visible_.clear();
  root_ = std::make_unique<Node>();
  loadChildren(*root_);
  // Reopen depth first, so that a reopened item's children are there to
  // reopen in turn.
  if (!opened.empty()) {
    std::vector<Node*> pending;
    for (std::size_t index = 0; index < root_->children.size(); ++index)
      pending.push_back(&childOf(*root_, index));
    while (!pending.empty()) {
      Node* node = pending.back();
      pending.pop_back();
      if (!opened.count(node->item.id.str()))
        continue;
      loadChildren(*node);
      node->expanded = !node->children.empty();
      for (std::size_t index = 0; index < node->children.size(); ++index)
        pending.push_back(&childOf(*node, index));
    }
  }
  collectShown(*root_, visible_);
  selected_ = selectedId.empty() ? -1 : rowOf(selectedId);
  rowsChanged();
}

TreeView::Node* TreeView::find(Node& from, LightweightString<wchar_t> const& id) const {
  std::optional<std::size_t> const known =
      adaptor_ && from.loaded ? adaptor_->getChildIndex(from.item.id, id) : std::nullopt;
  if (known && *known < from.children.size())
    if (Node& child = childOf(from, *known); child.item.id == id)
      return &child;
  for (std::size_t index = 0; index < from.children.size(); ++index) {
    // With the place known, rows not yet asked for hold nothing opened.
    if (known && !from.children[index])
      continue;
    Node& child = childOf(from, index);
    if (!known && child.item.id == id)
      return &child;
    if (child.loaded)
      if (Node* found = find(child, id))
        return found;
  }
  return nullptr;
}

int TreeView::rowOf(Node const& node) const {
  for (int row = 0; row < rowCount(); ++row)
    if (visible_[row].parent == node.parent && visible_[row].index == node.index)
      return row;
  return -1;
}

int TreeView::rowOf(LightweightString<wchar_t> const& id) const {
  Node const* node = find(*root_, id);
  return node ? rowOf(*node) : -1;
}

iTreeViewAdaptor::Item const* TreeView::itemAt(int row) const {
  return row >= 0 && row < rowCount() ? &nodeAt(row).item : nullptr;
}

int TreeView::depthAt(int row) const { return row >= 0 && row < rowCount() ? visible_[row].parent->depth + 1 : -1; }

LightweightString<wchar_t> TreeView::getSelectedItem() const {
  return selected_ >= 0 ? nodeAt(selected_).item.id : LightweightString<wchar_t>();
}

bool TreeView::setSelectedItem(LightweightString<wchar_t> const& id) {
  Node* node = find(*root_, id);
  if (!node)
    return false;
  // Open the way down to it.
  std::vector<Node*> ancestors;
  for (Node* up = node->parent; up && up != root_.get(); up = up->parent)
    ancestors.push_back(up);
  for (auto it = ancestors.rbegin(); it != ancestors.rend(); ++it)
    if (!(*it)->expanded)
      openAt(rowOf(**it), false);
  selectRow(rowOf(*node), false);
  return true;
}

bool TreeView::isExpanded(LightweightString<wchar_t> const& id) const {
  Node* node = find(*root_, id);
  return node && node->expanded;
}

bool TreeView::expand(LightweightString<wchar_t> const& id) {
  int const row = rowOf(id);
  if (row < 0)
    return false;
  openAt(row, false);
  return nodeAt(row).expanded;
}

bool TreeView::collapse(LightweightString<wchar_t> const& id) {
  int const row = rowOf(id);
  if (row < 0)
    return false;
  closeAt(row, false);
  return true;
}

void TreeView::openAt(int row, bool reportIt) {
  Node& node = nodeAt(row);
  if (node.expanded)
    return;
  loadChildren(node);
  if (node.children.empty())
    return;
  node.expanded = true;
  std::vector<Shown> shown;
  collectShown(node, shown);
  visible_.insert(visible_.begin() + row + 1, shown.begin(), shown.end());
  if (selected_ > row)
    selected_ += static_cast<int>(shown.size());
  rowsChanged();
  if (reportIt)
    report(TreeViewEvent::kExpanded, row);
}

void TreeView::closeAt(int row, bool reportIt) {
  Node& node = nodeAt(row);
  if (!node.expanded)
    return;
  node.expanded = false;
  int end = row + 1;
  while (end < rowCount() && depthAt(end) > node.depth)
    ++end;
  visible_.erase(visible_.begin() + row + 1, visible_.begin() + end);
  // A selection inside the closed branch moves to the item closed.
  if (selected_ > row && selected_ < end)
    selected_ = row;
  else if (selected_ >= end)
    selected_ -= end - row - 1;
  rowsChanged();
  if (reportIt)
    report(TreeViewEvent::kCollapsed, row);
}

void TreeView::selectRow(int row, bool reportIt) {
  if (row < 0 || row >= rowCount())
    return;
  int const old = selected_;
  selected_ = row;
  refreshRows(old, old);
  refreshRows(row, row);
  scrollToShow(row);
  if (reportIt)
    report(TreeViewEvent::kSelection, row);
}

void TreeView::report(int type, int row) { broadcast(TreeViewEvent{type, nodeAt(row).item.id, this}); }

void TreeView::setAppearance(int appearance) {
  if (appearance == appearance_)
    return;
  appearance_ = appearance;
  widest_ = 0;
  rowsChanged();
}

void TreeView::setScrollbarDisplay(int display) {
  // Never means neither bar: a tree that must not scroll sideways is cut.
  sidewaysAllowed_ = display != kScrollbarNever;
  setScrollBarAllowed(display != kScrollbarNever);
}

Glob* TreeView::makeRow(int index, int width, int height) { return new TreeRow(this, index, XY<int>(width, height)); }

void TreeView::updateRow(int index, Glob* row) {
  Node& node = nodeAt(index);
  static_cast<TreeRow*>(row)->setLook(index == selected_, index == selected_ && hasKbdFocus(), hasChildren(node),
                                      node.expanded);
}

void TreeView::rowsPlaced() {
  int const first = getFirstVisibleIndex();
  for (int row = std::max(first, 0); first >= 0 && row <= getLastVisibleIndex(); ++row)
    if (auto const* shown = static_cast<TreeRow const*>(getRowGlob(row)))
      widest_ = std::max(widest_, shown->naturalWidth());
  if (sideways_.setWidths(sidewaysAllowed_ ? widest_ : 0, getView()->width())) {
    // The bar takes its height from the rows, or gives it back.
    refitView();
    return;
  }
  Zo::Box<int> const rows = getUserArea();
  sideways_.placeBar(XY<int>(rows.x0, rows.y0 - sideways_.barHeight()));
}

Zo::Box<int> TreeView::getUserArea() const {
  Zo::Box<int> const area = VirtualRowsBase::getUserArea();
  int const bottom = std::min(area.y0 + sideways_.barHeight(), area.y1);
  return Zo::Box<int>(area.x0, bottom, area.x1, area.y1);
}

void TreeView::showRowStart(int row) {
  int const left = appearance_ == kFlat ? 0 : depthAt(row) * indentStep();
  sideways_.scrollToShow(left, expanderRight(row));
}

int TreeView::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (sideways_.handleMessage(message, sender))
    return 1;
  return VirtualRowsBase::handleMessageEvent(message, sender);
}

int TreeView::expanderRight(int row) const {
  return appearance_ == kFlat
             ? 0
             : ScrollListItemWidget::lookFor(getPalette()).textIndent / 2 + (depthAt(row) + 1) * indentStep();
}

int TreeView::handleMouseEvent(Event const& event) {
  if (sideways_.handleWheel(event))
    return 1;
  if (event.type != Event::kMouseDown || !mouse_left_event(event))
    return VirtualRowsBase::handleMouseEvent(event);
  claimKbdFocus();
  int const row = rowIndexAt(event.position);
  if (row < 0)
    return 1;
  int const x = event.position.x - getView()->getX() + sideways_.offset();
  bool const onArrow = appearance_ != kFlat && x < expanderRight(row) && x >= expanderRight(row) - indentStep();
  if (onArrow && hasChildren(nodeAt(row))) {
    if (nodeAt(row).expanded)
      closeAt(row, true);
    else
      openAt(row, true);
    return 1;
  }
  selectRow(row, true);
  if (event.clicks >= 2) {
    if (hasChildren(nodeAt(row)))
      nodeAt(row).expanded ? closeAt(row, true) : openAt(row, true);
    report(TreeViewEvent::kActivated, row);
  }
  return 1;
}

int TreeView::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  int const at = selected_;
  auto move = [this](int row) {
    selectRow(std::clamp(row, 0, rowCount() - 1), true);
    showRowStart(selected_);
  };
  if (rowCount() == 0)
    return VirtualRowsBase::handleKeyboardEvent(key);
  switch (bare) {
  case kKeyUp:
    move(at < 0 ? 0 : at - 1);
    return 1;
  case kKeyDown:
    move(at + 1);
    return 1;
  case kKeyPageUp:
    move(at < 0 ? 0 : at - (linesPerPage() - 1));
    return 1;
  case kKeyPageDown:
    move(at + std::max(1, linesPerPage() - 1));
    return 1;
  case kKeyHome:
    move(0);
    return 1;
  case kKeyEnd:
    move(rowCount() - 1);
    return 1;
  case kKeyRight:
    if (at < 0)
      move(0);
    else if (!nodeAt(at).expanded && hasChildren(nodeAt(at)))
      openAt(at, true);
    else if (nodeAt(at).expanded)
      move(at + 1);
    return 1;
  case kKeyLeft:
    if (at < 0)
      move(0);
    else if (nodeAt(at).expanded)
      closeAt(at, true);
    else if (depthAt(at) > 0) {
      // The parent is the nearest row above that stands one level out.
      int parent = at - 1;
      while (depthAt(parent) >= depthAt(at))
        --parent;
      move(parent);
    }
    return 1;
  case kKeyReturn:
  case kSpaceKey:
    if (at < 0)
      return 0;
    report(TreeViewEvent::kActivated, at);
    return 1;
  default:
    return VirtualRowsBase::handleKeyboardEvent(key);
  }
}

void TreeView::handleKbdFocus(bool gained) {
  VirtualRowsBase::handleKbdFocus(gained);
  refreshRows(selected_, selected_);
}
