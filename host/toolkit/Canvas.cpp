#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>
#include <zowidgets/host/toolkit/detail/DrawingState.h>
#include <zowidgets/host/toolkit/detail/GlobRegistry.h>

#include <algorithm>

namespace {

// Back to front. User-interface thread only.
std::vector<Canvas*>& canvases() {
  static std::vector<Canvas*> list;
  return list;
}

// Which windows stay in front of which: panels, then dialogues, then popups
// and tips (a dialogue's own menu over the dialogue).
int layerOf(Canvas const* canvas) {
  if (!canvas->root())
    return 0;
  switch (canvas->root()->windowKind()) {
  case Glob::eWindowKind::kPanel:
    return 0;
  case Glob::eWindowKind::kDialogue:
    return 1;
  case Glob::eWindowKind::kPopupMenu:
  case Glob::eWindowKind::kTip:
    return 2;
  }
  return 0;
}

// Widgets belong to the user-interface thread; another thread's redraw
// bracket must not paint them.
void flushPendingPaints() {
  if (co_pid() == 0)
    Canvas::paintAllPending();
}

[[maybe_unused]] bool const flushInstalled = (Drawable::setFlushHandler(&flushPendingPaints), true);

} // namespace

Canvas::Canvas(Glob* root, XY<int> screenPosition, XY<int> size)
    : root_(root), position_(screenPosition), size_(size), surface_(size.x, size.y) {
  canvases().push_back(this);
  damage_ = Zo::Box<int>(0, 0, size.x, size.y); // painted when mapped
}

Canvas::~Canvas() {
  DrawingState::forgetCanvas(this);
  // Gone with its root, which already told of its deletion: not "hidden".
  if (mapped_) {
    mapped_ = false;
    screenBackend().canvasUnmapped(*this);
  }
  std::erase(canvases(), this);
}

Zo::Box<int> Canvas::screenBox() const {
  return Zo::Box<int>(position_.x, position_.y, position_.x + size_.x, position_.y + size_.y);
}

void Canvas::move(XY<int> screenPosition) {
  if (screenPosition == position_)
    return;
  position_ = screenPosition;
  if (mapped_)
    screenBackend().canvasMoved(*this);
  GlobRegistry::announce(GlobManagerEvent::kMoved, root_);
  paintWhatCameIntoView();
}

void Canvas::movedOnScreen(XY<int> screenPosition) {
  if (screenPosition == position_)
    return;
  position_ = screenPosition;
  GlobRegistry::announce(GlobManagerEvent::kMoved, root_);
  paintWhatCameIntoView();
}

void Canvas::resize(XY<int> size) {
  if (size == size_)
    return;
  size_ = size;
  surface_ = Zo::Image::Surface(size.x, size.y);
  damage_ = Zo::Box<int>();
  addDamage(Zo::Box<int>(0, 0, size.x, size.y));
  if (mapped_ && !adoptingSize_)
    screenBackend().canvasResized(*this);
  GlobRegistry::announce(GlobManagerEvent::kResized, root_);
}

void Canvas::resizedOnScreen(XY<int> screenPosition, XY<int> size) {
  if (size == size_) {
    movedOnScreen(screenPosition);
    return;
  }
  bool const moved = screenPosition != position_;
  adoptingSize_ = true;
  position_ = screenPosition;
  if (root_)
    root_->resize(size.x, size.y);
  else
    resize(size);
  adoptingSize_ = false;
  if (moved)
    GlobRegistry::announce(GlobManagerEvent::kMoved, root_);
  paintWhatCameIntoView();
  // A root with limits of its own keeps them: the window goes back to it.
  if (size_ != size && mapped_)
    screenBackend().canvasResized(*this);
}

void Canvas::map() {
  if (mapped_)
    return;
  mapped_ = true;
  screenBackend().canvasMapped(*this);
  // A window shown comes up in front of the others: the dialogues and
  // popups go back in front of it.
  keepHigherLayersInFront();
  addDamage(Zo::Box<int>(0, 0, size_.x, size_.y));
  GlobRegistry::windowShown(root_);
}

void Canvas::unmap() {
  if (!mapped_)
    return;
  mapped_ = false;
  screenBackend().canvasUnmapped(*this);
  GlobRegistry::windowGone(root_, false);
  GlobRegistry::announce(GlobManagerEvent::kHidden, root_);
}

void Canvas::popToTop() {
  if (moveToFrontOfStack() && mapped_)
    screenBackend().canvasRaised(*this);
  keepHigherLayersInFront();
}

bool Canvas::raisedOnScreen() {
  bool const moved = moveToFrontOfStack();
  keepHigherLayersInFront();
  return moved;
}

bool Canvas::moveToFrontOfStack() {
  auto& list = canvases();
  auto found = std::find(list.begin(), list.end(), this);
  if (found == list.end())
    return false;
  // In front already: behind nothing but windows of higher layers (a press
  // in the panel in front raises nothing).
  int const layer = layerOf(this);
  if (std::all_of(found + 1, list.end(), [layer](Canvas const* after) { return layerOf(after) > layer; }))
    return false;
  list.erase(found);
  list.push_back(this);
  return true;
}

void Canvas::keepHigherLayersInFront() {
  int const layer = layerOf(this);
  auto& list = canvases();
  std::vector<Canvas*> higher;
  std::copy_if(list.begin(), list.end(), std::back_inserter(higher),
               [layer](Canvas const* canvas) { return layerOf(canvas) > layer; });
  std::stable_sort(higher.begin(), higher.end(),
                   [](Canvas const* a, Canvas const* b) { return layerOf(a) < layerOf(b); });
  for (Canvas* front : higher) {
    std::erase(list, front);
    list.push_back(front);
    if (front->mapped_)
      screenBackend().canvasKeptInFront(*front);
  }
}

LightweightString<wchar_t> Canvas::title() const { return root_ ? root_->windowTitle() : LightweightString<wchar_t>(); }

void Canvas::kindChanged() {
  if (mapped_)
    screenBackend().canvasKindChanged(*this);
  keepHigherLayersInFront();
}

void Canvas::titleChanged() {
  if (mapped_)
    screenBackend().canvasRetitled(*this);
}

void Canvas::addDamage(Zo::Box<int> const& box) {
  Zo::Box<int> clipped = box.intersect(Zo::Box<int>(0, 0, size_.x, size_.y));
  if (clipped.empty())
    return;
  damage_ = damage_.unite(clipped);
  if (!Drawable::redrawsDisabled())
    paintPending();
}

void Canvas::clearDamage() { damage_ = Zo::Box<int>(); }

void Canvas::paintPending() { paintDamageWithin(shownArea()); }

void Canvas::paintPendingEverywhere() { paintDamageWithin(Zo::Box<int>(0, 0, size_.x, size_.y)); }

Zo::Box<int> Canvas::shownArea() const {
  XY<int> const screen = screenBackend().screenSize();
  return Zo::Box<int>(0, 0, size_.x, size_.y)
      .intersect(Zo::Box<int>(-position_.x, -position_.y, screen.x - position_.x, screen.y - position_.y));
}

namespace {

// What of `damage` lies outside `painted`, as one box: the damage kept.
Zo::Box<int> damageLeft(Zo::Box<int> const& damage, Zo::Box<int> const& painted) {
  if (painted.empty())
    return damage;
  Zo::Box<int> left;
  for (Zo::Box<int> const& piece : {Zo::Box<int>(damage.x0, damage.y0, damage.x1, painted.y0),
                                    Zo::Box<int>(damage.x0, painted.y1, damage.x1, damage.y1),
                                    Zo::Box<int>(damage.x0, painted.y0, painted.x0, painted.y1),
                                    Zo::Box<int>(painted.x1, painted.y0, damage.x1, painted.y1)})
    if (!piece.empty())
      left = left.unite(piece);
  return left;
}

} // namespace

void Canvas::paintDamageWithin(Zo::Box<int> const& limit) {
  // A widget may change while it paints (rows made on first showing): the
  // damage it adds is painted in a further pass, never from inside a paint.
  // While the screen's refresh is off, the damage waits for refresh_on.
  if (painting_ || refresh_is_off())
    return;
  painting_ = true;
  constexpr int kMaxPasses = 4;
  for (int pass = 0; pass < kMaxPasses && root_ && !surface_.empty(); ++pass) {
    Zo::Box<int> const area = damage_.intersect(limit);
    if (area.empty())
      break;
    damage_ = damageLeft(damage_, area);
    CanvasRenderer renderer(surface_);
    root_->paint(renderer, area);
    ++paintCount_;
    if (mapped_)
      screenBackend().canvasPainted(*this, area);
  }
  painting_ = false;
}

void Canvas::paintWhatCameIntoView() {
  if (!damage_.empty() && !Drawable::redrawsDisabled())
    paintPending();
}

Canvas* Canvas::atScreenPoint(XY<int> point, Canvas const* lookThrough) {
  auto const& list = canvases();
  for (auto it = list.rbegin(); it != list.rend(); ++it)
    if (*it != lookThrough && (*it)->mapped_ && (*it)->screenBox().contains(point))
      return *it;
  return nullptr;
}

Glob* Canvas::widgetAtScreenPoint(XY<int> point, Canvas const* lookThrough) {
  Canvas* const canvas = atScreenPoint(point, lookThrough);
  return canvas ? canvas->root_->pick(point - canvas->position_) : nullptr;
}

std::vector<Canvas*> const& Canvas::stack() { return canvases(); }

void Canvas::paintAllPending() {
  // A paint may damage another canvas; a copy keeps the walk safe.
  std::vector<Canvas*> list = canvases();
  for (Canvas* canvas : list)
    if (std::find(canvases().begin(), canvases().end(), canvas) != canvases().end())
      canvas->paintPending();
}
