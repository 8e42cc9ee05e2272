#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <algorithm>

namespace {

// The standard widgets of the title bar, right to left.
constexpr StandardPanel::eStandardWidget kTitleButtons[] = {StandardPanel::kPoot, StandardPanel::kPin,
                                                            StandardPanel::kCogs};

} // namespace

StandardPanel::StandardPanel(InitArgs const& args)
    : MenuGlob(args), title_(args.title), titleFont_(UifStd::getTitleFont()) {
  // A panel on its own is moved by its title bar.
  setMovable(true);
  if (!args.hasBorder)
    setBorder(getDefaultBorder());
  addStandardWidgets(args.standardWidgets | (args.title.empty() ? 0u : unsigned(kTitle)));
}

UIString StandardPanel::getTooltip(XY<int> position, bool client) const {
  XY<int> const at = client ? position : position - screenPosition();
  if (getStandardWidgetBox(kPoot).contains(at))
    return UIString(L"Close");
  if (getStandardWidgetBox(kPin).contains(at))
    return UIString(pinned_ ? L"Unpin" : L"Pin");
  if (getStandardWidgetBox(kCogs).contains(at))
    return UIString(L"Menu");
  return MenuGlob::getTooltip(position, client);
}

Border StandardPanel::getDefaultBorder() { return Border(2, 1, UifStd::getWidgetGap()); }

int StandardPanel::titleBarHeight() const {
  return (standardWidgets_ & (kTitle | kPoot | kPin | kCogs)) ? UifStd::getRowHeight() + UifStd::getRowGap() : 0;
}

int StandardPanel::footerHeight() const {
  return (standardWidgets_ & kDoIt) ? UifStd::getRowHeight() + 2 * UifStd::getRowGap() : 0;
}

void StandardPanel::addStandardWidgets(unsigned flags) {
  unsigned before = standardWidgets_;
  standardWidgets_ |= flags;
  if (standardWidgets_ != before) {
    layoutChildren();
    invalidate();
  }
}

void StandardPanel::removeStandardWidgets(unsigned flags) {
  unsigned before = standardWidgets_;
  standardWidgets_ &= ~flags;
  if (standardWidgets_ != before) {
    layoutChildren();
    invalidate();
  }
}

void StandardPanel::setTitle(UIString const& title, Glib::FontDesc const& font, eRedrawFlag redraw) {
  title_ = title;
  titleFont_ = font;
  if (!title.empty())
    addStandardWidgets(kTitle);
  handleTitleChange();
  if (redraw == kRedrawNow)
    invalidate(getTitleArea());
  if (Canvas* own = canvas(); own && own->root() == this)
    own->titleChanged();
}

void StandardPanel::setDoItLabel(UIString const& label) {
  doItLabel_ = label;
  invalidate(getStandardWidgetBox(kDoIt));
}

Zo::Box<int> StandardPanel::getTitleArea() const {
  int h = titleBarHeight();
  if (h == 0)
    return {};
  Border const& b = getBorder();
  return Zo::Box<int>(b.left(), height() - b.top() - h, width() - b.right(), height() - b.top());
}

Zo::Box<int> StandardPanel::getUserArea() const {
  Border const& b = getBorder();
  return Zo::Box<int>(b.left(), b.bottom() + footerHeight(), width() - b.right(),
                      height() - b.top() - titleBarHeight());
}

WidgetSurround StandardPanel::getUserAreaBorders() const {
  Zo::Box<int> const user = getUserArea();
  return WidgetSurround{user.x0, width() - user.x1, height() - user.y1, user.y0};
}

XY<int> StandardPanel::getOriginXY(eCoordinateOrigin origin) const {
  Zo::Box<int> const user = getUserArea();
  int const midX = user.x0 + user.width() / 2;
  int const midY = user.y0 + user.height() / 2;
  switch (origin) {
  case kOriginLeft:
    return XY<int>(user.x0, midY);
  case kOriginRight:
    return XY<int>(user.x1, midY);
  case kOriginTop:
    return XY<int>(midX, user.y1);
  case kOriginBottom:
    return XY<int>(midX, user.y0);
  case kOriginBottomLeft:
    return XY<int>(user.x0, user.y0);
  case kOriginTopLeft:
    return XY<int>(user.x0, user.y1);
  case kOriginBottomRight:
    return XY<int>(user.x1, user.y0);
  case kOriginTopRight:
    return XY<int>(user.x1, user.y1);
  case kOriginCentre:
  case kOriginPanelDefault:
    break;
  }
  return XY<int>(midX, midY);
}

void StandardPanel::resizeChildren(int axes) {
  // The user area's size before the change: the borders stay, the panel's
  // size changed by the difference.
  Zo::Box<int> const user = getUserArea();
  XY<int> const before(user.width() - (width() - oldWidth()), user.height() - (height() - oldHeight()));
  for (Glob* child : std::vector<Glob*>(getChildren())) {
    XY<int> size = child->getSize();
    if ((axes & kResizeWidth) && size.x == before.x)
      size.x = user.width();
    if ((axes & kResizeHeight) && size.y == before.y)
      size.y = user.height();
    if (size != child->getSize())
      child->setDimensions(size);
  }
}

Palette StandardPanel::makeFooterPalette() const { return makeWindowPalette(getPalette(), getPalette().window(-1)); }

void StandardPanel::doItMsg() {
  handleDoIt();
  handleMessageEvent(kDoItMsg, this);
}

Zo::Box<int> StandardPanel::getMarginArea() const {
  Border const& b = getBorder();
  return Zo::Box<int>(b.left(), b.bottom(), width() - b.right(), b.bottom() + footerHeight());
}

Zo::Box<int> StandardPanel::getStandardWidgetBox(eStandardWidget which) const {
  if (!(standardWidgets_ & which))
    return {};
  if (which == kDoIt) {
    Zo::Box<int> footer = getMarginArea();
    int gap = UifStd::getRowGap();
    int w = UifStd::getRowHeight() * 4;
    return Zo::Box<int>(footer.x1 - w, footer.y0 + gap, footer.x1, footer.y1 - gap);
  }
  Zo::Box<int> bar = getTitleArea();
  int side = UifStd::getRowHeight();
  int right = bar.x1;
  for (eStandardWidget button : kTitleButtons) {
    if (!(standardWidgets_ & button))
      continue;
    Zo::Box<int> box(right - side, bar.y1 - side, right, bar.y1);
    if (button == which)
      return box;
    right -= side + UifStd::getWidgetGap();
  }
  return {};
}

XY<int> StandardPanel::calcPanelSize(XY<int> userArea, unsigned standardWidgets, Border const& border) {
  int title = (standardWidgets & (kTitle | kPoot | kPin | kCogs)) ? UifStd::getRowHeight() + UifStd::getRowGap() : 0;
  int footer = (standardWidgets & kDoIt) ? UifStd::getRowHeight() + 2 * UifStd::getRowGap() : 0;
  return XY<int>(userArea.x + border.left() + border.right(),
                 userArea.y + border.top() + border.bottom() + title + footer);
}

int StandardPanel::react(Event const& event) {
  switch (event.type) {
  case Event::kMessageEvent:
    return event.data ? handleDataMessageEvent(event.message, event.sourceWidget, event.data)
                      : handleMessageEvent(event.message, event.sourceWidget);
  case Event::kKeyDown:
    return handleKeyboardEvent(event.key);
  case Event::kKeyUp:
    return handleKeyReleaseEvent(event.key);
  case Event::kTimer:
    handleTimerEvent();
    return 1;
  default:
    break;
  }
  if (event.isMouse()) {
    if (reactInTitleBar(event))
      return 1;
    if (int used = handleMouseEvent(event))
      return used;
    if (event.type == Event::kMouseDown && (event.buttons & kMouseRight) && canMakeMenu(event))
      return makeMenu(event) ? 1 : 0;
    return 0;
  }
  return 0;
}

bool StandardPanel::reactInTitleBar(Event const& event) {
  auto hit = [&](eStandardWidget which) { return getStandardWidgetBox(which).contains(event.position); };
  if (event.type == Event::kMouseUp && (event.buttons & kMouseLeft)) {
    bool wasDragging = draggingWindow_;
    draggingWindow_ = false;
    if (wasDragging)
      return true;
    if (hit(kPoot)) {
      handlePoot();
      return true;
    }
    if (hit(kPin)) {
      pinned_ = !pinned_;
      handlePinned(pinned_);
      invalidate(getTitleArea());
      return true;
    }
    if (hit(kDoIt)) {
      doItMsg();
      return true;
    }
    if (hit(kCogs)) {
      handleMenuRequest(event);
      return true;
    }
    return false;
  }
  if (event.type == Event::kMouseDown && (event.buttons & kMouseLeft)) {
    if (hit(kPoot) || hit(kPin) || hit(kDoIt) || hit(kCogs))
      return true; // acted on at release, like a button
    if (!parent() && isMovable() && getTitleArea().contains(event.position)) {
      draggingWindow_ = true;
      dragGrip_ = event.position;
      return true;
    }
    return false;
  }
  if (event.type == Event::kMouseMove && draggingWindow_) {
    if (Canvas* own = canvas())
      own->move(event.screenPosition - dragGrip_);
    return true;
  }
  return false;
}

int StandardPanel::handleMessageEvent(LightweightString<char> const&, Glob*) { return 0; }

int StandardPanel::handleDataMessageEvent(LightweightString<char> const& message, Glob* sender,
                                          Zo::Ptr<iObject> const&) {
  return handleMessageEvent(message, sender);
}

bool StandardPanel::closesOnEscape() const {
  // A dialogue, as its close button does, and so a modal window that holds
  // up the others (a confirmation).
  return windowKind() == eWindowKind::kDialogue || GlobManager::currentModal() == this;
}

int StandardPanel::handleKeyboardEvent(int key) {
  if ((key & ~kKeyModifierMask) == kKeyEscape && !parent() && closesOnEscape()) {
    handlePoot();
    return 1;
  }
  // Return that no widget used is the footer's action, as a dialogue's
  // default button takes it; Ctrl+Return too, for widgets that keep Return
  // for a new line.
  int const modifiers = key & kKeyModifierMask;
  if ((key & ~kKeyModifierMask) == kKeyReturn && (modifiers == 0 || modifiers == kKeyCtrl) &&
      (standardWidgets_ & kDoIt)) {
    doItMsg();
    return 1;
  }
  return 0;
}

int StandardPanel::handleKeyReleaseEvent(int) { return 0; }

int StandardPanel::handleMouseEvent(Event const&) { return 0; }

void StandardPanel::handlePoot() { GlobManager::requestDeletion(getRootParent()); }

void StandardPanel::handlePinned(bool) {}

void StandardPanel::drawBackground(CanvasRenderer& renderer) {
  Glob::drawBackground(renderer);
  drawTitleAndFooterBands(renderer);
}

void StandardPanel::drawTitleAndFooterBands(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  if (Zo::Box<int> bar = getTitleArea(); !bar.empty())
    renderer.renderPrimitive(Glib::RectDescription(bar, palette.window(-2)));
  if (Zo::Box<int> footer = getMarginArea(); !footer.empty())
    renderer.renderPrimitive(Glib::RectDescription(footer, palette.window(-1)));
}

void StandardPanel::draw(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  Zo::Box<int> bar = getTitleArea();
  // The name the window carries on the desktop, which an untitled message
  // takes from the window it speaks for.
  if (LightweightString<wchar_t> const title = windowTitle(); !bar.empty() && !title.empty()) {
    // Up to the buttons on the bar, a title too long for the room ending in
    // an ellipsis rather than running under them.
    int right = bar.x1;
    for (eStandardWidget button : kTitleButtons)
      if (Zo::Box<int> const box = getStandardWidgetBox(button); !box.empty())
        right = std::min(right, box.x0 - UifStd::getWidgetGap());
    Glib::TextDescription text(title, Zo::Box<double>(bar.x0 + UifStd::getWidgetGap(), bar.y0, right, bar.y1),
                               titleFont_, palette.headingText());
    text.ellipsis = true;
    renderer.renderPrimitive(text);
  }
  Colour glyph = palette.text();
  if (Zo::Box<int> poot = getStandardWidgetBox(kPoot); !poot.empty()) {
    int inset = poot.width() / 4;
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(poot.x0 + inset, poot.y0 + inset),
                                                   XY<double>(poot.x1 - inset, poot.y1 - inset),
                                                   2.0 * UifStd::getScale(), glyph));
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(poot.x0 + inset, poot.y1 - inset),
                                                   XY<double>(poot.x1 - inset, poot.y0 + inset),
                                                   2.0 * UifStd::getScale(), glyph));
  }
  if (Zo::Box<int> pin = getStandardWidgetBox(kPin); !pin.empty()) {
    XY<double> centre((pin.x0 + pin.x1) / 2.0, (pin.y0 + pin.y1) / 2.0);
    double radius = pin.width() / 5.0;
    renderer.renderPrimitive(pinned_ ? Glib::EllipseDescription::disc(centre, radius, palette.selection())
                                     : Glib::EllipseDescription::ring(centre, radius, 1.5, glyph));
  }
  if (Zo::Box<int> cogs = getStandardWidgetBox(kCogs); !cogs.empty()) {
    XY<double> centre((cogs.x0 + cogs.x1) / 2.0, (cogs.y0 + cogs.y1) / 2.0);
    renderer.renderPrimitive(Glib::EllipseDescription::ring(centre, cogs.width() / 4.0, 3.0, glyph));
  }
  if (Zo::Box<int> doIt = getStandardWidgetBox(kDoIt); !doIt.empty()) {
    Glib::RoundedRectDescription button;
    button.box = Zo::Box<double>(doIt.x0, doIt.y0, doIt.x1, doIt.y1);
    button.radius = UifStd::getIndentWidth();
    button.fill = palette.doIt();
    renderer.renderPrimitive(button);
    renderer.renderPrimitive(Glib::TextDescription(doItLabel_.getString(), button.box, UifStd::getFont(),
                                                   palette.headingText(), Glib::eTextAlignment::Centre));
  }
}

bool StandardPanel::makeMenu(Event const& event) {
  if (!menuInitialised_) {
    initialiseMenu();
    menuInitialised_ = true;
  }
  updateMenuIfNecessary();
  reviewMenu(&event);
  std::vector<MenuItem> items = getMenuItems(&event);
  if (items.empty())
    return false;
  IdStamp const stamp = handlerStamp();
  MenuWindow* window = MenuWindow::open(
      Menu(items), event.screenPosition,
      [this, stamp, items](MenuData::Change const& change) {
        if (!EventHandler::valid(this, stamp))
          return;
        if (change.kind != MenuData::Change::kHighlighted)
          menu_ = nullptr;
        if (change.kind != MenuData::Change::kChosen || change.index < 0 ||
            change.index >= static_cast<int>(items.size()))
          return;
        MenuItem const& chosen = items[static_cast<std::size_t>(change.index)];
        if (chosen.action)
          chosen.action(chosen);
        if (EventHandler::valid(this, stamp))
          handleMenuChoice(change.index, chosen);
      },
      0, canvas());
  menu_ = window;
  return window != nullptr;
}

void StandardPanel::handleMenuChoice(int, MenuItem const&) {}

MenuWindow* StandardPanel::openMenu() const {
  return is_good_glob_ptr(menu_) ? static_cast<MenuWindow*>(menu_) : nullptr;
}

void StandardPanel::updateMenuIfNecessary() {
  if (MenuWindow* open = openMenu())
    open->close(MenuData::Change{MenuData::Change::kCancelled, -1});
  menu_ = nullptr;
}

MessageBase::MessageBase(InitArgs const& args) : StandardPanel(args) {
  if (!args.palette)
    setPalette(palette());
  if (Glob const* focus = get_kbd_focus())
    if (Glob const* window = focus->getRootParent(); window && window != this)
      speaksFor_ = window->windowTitle();
}

LightweightString<wchar_t> MessageBase::windowTitle() const {
  LightweightString<wchar_t> own = StandardPanel::windowTitle();
  return own.empty() ? speaksFor_ : own;
}

Palette MessageBase::palette() { return makePopupPalette(UifStd::getColourScheme()); }
