#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/detail/GlobRegistry.h>

#include <algorithm>
#include <map>
#include <unordered_set>

namespace {

struct Registry {
  std::unordered_set<Glob const*> live;
  std::vector<Glob*> pendingDeletion;
  std::vector<Glob*> modal;
  // (window, the modal window it belongs beside)
  std::vector<std::pair<Glob*, Glob*>> besideModal;
  std::map<LightweightString<char>, GlobManager::Factory> factories;
};

Registry& registry() {
  static Registry* instance = new Registry; // widgets may die during exit
  return *instance;
}

void deletePending() {
  Registry& r = registry();
  std::vector<Glob*> doomed;
  doomed.swap(r.pendingDeletion);
  for (Glob* widget : doomed) {
    if (!r.live.count(widget))
      continue; // went with its parent
    if (Glob* parent = widget->parent())
      parent->removeWidget(widget);
    else
      delete widget;
  }
}

} // namespace

void GlobRegistry::announce(GlobManagerEvent::eKind kind, Glob* widget) {
  if (!widget)
    return;
  GlobManager::notifier().issueNotification(GlobManagerEvent{kind, widget, widget->handlerStamp()},
                                            NotifyMsgTypeDictionary::instance().anyType());
}

void GlobRegistry::enrol(Glob* widget) { registry().live.insert(widget); }

Glob* GlobRegistry::liveGlobOf(EventHandler const* handler) {
  // Asked rarely (a command's origin), so the handlers' own registry says
  // whether it lives before the cast looks at it.
  if (EventHandler::stampOf(handler) == IdStamp::null())
    return nullptr;
  return dynamic_cast<Glob*>(const_cast<EventHandler*>(handler));
}

void GlobRegistry::withdraw(Glob* widget) {
  Registry& r = registry();
  r.live.erase(widget);
  std::erase(r.pendingDeletion, widget);
  std::erase(r.modal, widget);
  std::erase_if(r.besideModal, [widget](auto const& pair) { return pair.first == widget || pair.second == widget; });
  InputRouter::forget(widget);
  if (!widget->parent())
    GlobRegistry::windowGone(widget, true);
  GlobRegistry::forgetFocus(widget);
  announce(GlobManagerEvent::kWidgetDeleted, widget);
  if (!widget->parent() && widget->canvas())
    announce(GlobManagerEvent::kDeleted, widget);
}

bool GlobRegistry::isLive(Glob const* widget) { return widget && registry().live.count(widget) != 0; }

Glob* GlobManager::getParentForGlob(Glob* owner) { return is_good_glob_ptr(owner) ? owner->getRootParent() : nullptr; }

XY<int> GlobManager::getPosForGlob(GlobCreationInfo const& info, WidgetPosition const& position) {
  if (!info.screenPosition.isUnset())
    return info.screenPosition;
  XY<int> const screen = screenBackend().screenSize();
  Zo::Box<int> const whole(0, 0, screen.x, screen.y);
  if (position.isAreaRelative())
    return position.placeInArea(whole, info.size);
  if (position.kind == WidgetPosition::kAbsolute)
    return XY<int>(position.x, position.y);
  return WidgetPosition{WidgetPosition::kCentre}.placeInArea(whole, info.size);
}

XY<int> GlobManager::getSafePosForGlob(Canvas*, XY<int> size, XY<int> position) {
  XY<int> screen = screenBackend().screenSize();
  // A window larger than the screen keeps its top left corner on it, where
  // its title bar is (y counts up from the bottom).
  XY<int> safe = position;
  safe.x = std::max(std::min(safe.x, screen.x - size.x), 0);
  safe.y = std::min(std::max(safe.y, 0), screen.y - size.y);
  return safe;
}

XY<int> GlobManager::calcPosForGlob(GlobCreationInfo const& info, WidgetPosition const& position) {
  return getSafePosForGlob(nullptr, info.size, getPosForGlob(info, position));
}

void GlobManager::placeBeside(Glob* root, EventHandler* origin) {
  Glob* widget = GlobRegistry::liveGlobOf(origin);
  if (!is_good_glob_ptr(root) || !widget || !root->canvas() || !widget->canvas())
    return;
  Zo::Box<int> const beside = widget->canvas()->screenBox();
  XY<int> const wanted(beside.x1 + UifStd::getWidgetGap(), beside.y1 - root->height());
  root->canvas()->move(getSafePosForGlob(nullptr, root->getSize(), wanted));
}

void GlobManager::realize(Glob* root) {
  if (!is_good_glob_ptr(root) || root->parent() || root->canvas())
    return;
  XY<int> position = root->requestedScreenPosition();
  if (position.isUnset()) {
    GlobCreationInfo info(root->getSize());
    position = calcPosForGlob(info, WidgetPosition{WidgetPosition::kPanelDefault});
  }
  // Wherever it was asked for, a window comes up on the screen.
  position = getSafePosForGlob(nullptr, root->getSize(), position);
  root->setCanvas(std::make_unique<Canvas>(root, position, root->getSize()));
  Canvas* canvas = root->canvas();
  canvas->popToTop();
  canvas->map();
  GlobRegistry::announce(GlobManagerEvent::kRealized, root);
  GlobRegistry::announce(GlobManagerEvent::kActivated, root);
}

void GlobManager::requestDeletion(Glob* widget) {
  Registry& r = registry();
  if (!r.live.count(widget) || isDeletionPending(widget))
    return;
  r.pendingDeletion.push_back(widget);
  if (r.pendingDeletion.size() == 1)
    defer(&deletePending);
}

int GlobManager::deleteDestroyableWindows() {
  int asked = 0;
  for (Glob* root : topLevelWindows())
    if (root->canBeDestroyed() && !isDeletionPending(root)) {
      requestDeletion(root);
      ++asked;
    }
  return asked;
}

bool GlobManager::isDeletionPending(Glob const* widget) {
  auto const& pending = registry().pendingDeletion;
  return std::find(pending.begin(), pending.end(), widget) != pending.end();
}

void GlobManager::addModalGlob(Glob* root) {
  if (is_good_glob_ptr(root) && !isModal(root))
    registry().modal.push_back(root);
}

void GlobManager::addModalGlob(Glob* root, Glob* modalOwner) {
  if (is_good_glob_ptr(root) && is_good_glob_ptr(modalOwner) && root != modalOwner)
    registry().besideModal.emplace_back(root, modalOwner);
}

void GlobManager::removeModalGlob(Glob* root) { std::erase(registry().modal, root); }

bool GlobManager::refusesInput(Glob const* widget) {
  Glob const* modal = currentModal();
  if (!modal)
    return false;
  if (!widget)
    return true;
  Glob const* root = widget->getRootParent();
  auto const& beside = registry().besideModal;
  return root != modal && std::none_of(beside.begin(), beside.end(),
                                       [&](auto const& pair) { return pair.first == root && pair.second == modal; });
}

bool GlobManager::isModal(Glob const* root) {
  auto const& modal = registry().modal;
  return std::find(modal.begin(), modal.end(), root) != modal.end();
}

Glob* GlobManager::currentModal() {
  auto const& modal = registry().modal;
  return modal.empty() ? nullptr : modal.back();
}

Glob* GlobManager::find(IdStamp const& stamp) {
  for (Glob const* widget : registry().live)
    if (widget->handlerStamp() == stamp)
      return const_cast<Glob*>(widget);
  return nullptr;
}

Glob* GlobManager::find(LightweightString<char> const& name) {
  for (Glob* root : topLevelWindows())
    if (Glob* found = root->getWidget(name))
      return found;
  return nullptr;
}

void GlobManager::registerGlobType(LightweightString<char> const& className, Factory factory) {
  registry().factories[className] = std::move(factory);
}

Glob* GlobManager::createGlob(GlobCreationInfo const& info) {
  auto const& factories = registry().factories;
  auto found = factories.find(info.className);
  return found == factories.end() || !found->second ? nullptr : found->second(info);
}

std::vector<Glob*> GlobManager::topLevelWindows() {
  std::vector<Glob*> roots;
  for (Canvas* canvas : Canvas::stack())
    if (canvas->isMapped())
      roots.push_back(canvas->root());
  return roots;
}

void GlobManager::redisplay() { Canvas::paintAllPending(); }

GenericNotifier<GlobManagerEvent>& GlobManager::notifier() {
  static auto* instance = new GenericNotifier<GlobManagerEvent>;
  return *instance;
}

XY<int> glib_getPosForPanel(Canvas* canvas, XY<int> size) {
  XY<int> mouse = InputRouter::mousePosition();
  return GlobManager::getSafePosForGlob(canvas, size, XY<int>(mouse.x, mouse.y - size.y));
}
