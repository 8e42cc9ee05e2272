#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/popups/detail/SideAlignment.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>
#include <cmath>

namespace {

// Space above the first row and below the last.
int verticalPadding() { return UifStd::getIndentWidth() * 2; }
// The strip left of the text where the selected row's mark goes.
int markGutter() { return UifStd::getRowHeight() * 3 / 4; }
int textEndPadding() { return UifStd::getWidgetGap() * 3; }

Glib::FontDesc fontFor(MenuItem const& item) {
  return item.style == MenuItem::kHeading ? UifStd::getSubheadingFont() : UifStd::getFont();
}

} // namespace

MenuItem MenuItem::heading(UIString text) {
  MenuItem item(std::move(text));
  item.style = kHeading;
  return item;
}

MenuItem MenuItem::separator() {
  MenuItem item;
  item.style = kSeparator;
  return item;
}

Menu::Menu(std::vector<MenuItem> items, int selected) : items_(std::move(items)) { setSelected(selected); }

void Menu::setSelected(int index) {
  selected_ = index >= 0 && index < size() && item(index).isSelectable() ? index : -1;
}

int Menu::nextSelectable(int from, int step) const {
  for (int index = from + step; index >= 0 && index < size(); index += step)
    if (item(index).isSelectable())
      return index;
  return -1;
}

MenuWindow::MenuWindow(InitArgs const& args)
    : Glob(args), menu_(args.menu), onChange_(args.onChange), highlighted_(args.menu.getSelected()) {
  setCanBeIt(true);
  contentHeight_ = calcSize(menu_, args.minWidth).y;
  XY<int> const shown = calcShownSize(menu_, args.minWidth, args.maxHeight);
  resize(shown.x, shown.y);
  if (shown.y == contentHeight_)
    return;
  ScrollBar::InitArgs bar(GlobCreationInfo(XY<int>(ScrollBar::thickness(), shown.y)));
  bar.thumbSize = static_cast<double>(shown.y) / contentHeight_;
  bar_ = createChild<ScrollBar>(bar, UserTopRight(0, 0));
  if (highlighted_ >= 0) {
    // The chosen row opens in the middle of the window.
    Zo::Box<int> const row = rowBox(highlighted_);
    setScrollOffset(offset_ + height() / 2 - (row.y0 + row.y1) / 2);
  }
}

int MenuWindow::rowHeight(MenuItem const& item) {
  return item.style == MenuItem::kSeparator ? UifStd::getRowGap() * 2 + 1 : UifStd::getRowHeight();
}

MenuLabelColumns MenuLabelColumns::split(LightweightString<wchar_t> const& text) {
  std::size_t const bar = text.find(L"||");
  if (bar == LightweightString<wchar_t>::npos)
    return {text, {}};
  return {text.substr(0, bar), text.substr(bar + 2)};
}

int MenuLabelColumns::measure(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) {
  MenuLabelColumns const columns = split(text);
  double width = Glib::TextLayout::measure(columns.left, font).width;
  if (!columns.right.empty())
    width += 2 * UifStd::getWidgetGap() + Glib::TextLayout::measure(columns.right, font).width;
  return static_cast<int>(std::ceil(width));
}

XY<int> MenuWindow::calcSize(Menu const& menu, int minWidth) {
  int textWidth = 0;
  int height = verticalPadding() * 2;
  for (MenuItem const& item : menu.items()) {
    height += rowHeight(item);
    if (item.style != MenuItem::kSeparator)
      textWidth = std::max(textWidth, MenuLabelColumns::measure(item.text.getString(), fontFor(item)));
  }
  return XY<int>(std::max(minWidth, markGutter() + textWidth + textEndPadding()), height);
}

XY<int> MenuWindow::calcShownSize(Menu const& menu, int minWidth, int maxHeight) {
  XY<int> const needed = calcSize(menu, minWidth);
  if (maxHeight <= 0 || needed.y <= maxHeight)
    return needed;
  // The bar takes its own strip, so that no row's text lies under it.
  return XY<int>(needed.x + ScrollBar::thickness(), maxHeight);
}

MenuWindow::InitArgs MenuWindow::argsFor(Menu const& menu, ChangeHandler onChange, int minWidth,
                                         Palette const* palette) {
  InitArgs args;
  args.menu = menu;
  args.onChange = std::move(onChange);
  args.minWidth = minWidth;
  args.maxHeight = screenBackend().screenSize().y;
  args.size = calcShownSize(menu, minWidth, args.maxHeight);
  args.setPalette(makePopupPalette(palette ? *palette : UifStd::getColourScheme()));
  return args;
}

MenuWindow* MenuWindow::open(Menu const& menu, XY<int> topLeft, ChangeHandler onChange, int minWidth, Canvas* near,
                             Palette const* palette) {
  return openAt(argsFor(menu, std::move(onChange), minWidth, palette), topLeft, near);
}

MenuWindow* MenuWindow::openAt(InitArgs args, XY<int> topLeft, Canvas* near) {
  args.screenPosition = GlobManager::getSafePosForGlob(near, args.size, XY<int>(topLeft.x, topLeft.y - args.size.y));
  auto* window = new MenuWindow(args);
  window->ownerWindow_ = GlobHandle(near ? near->root() : nullptr);
  GlobManager::realize(window);
  getEventInterceptStack().push(window);
  window->claimKbdFocus();
  return window;
}

MenuWindow* MenuWindow::openUnder(Menu const& menu, Zo::Box<int> const& owner, ChangeHandler onChange, int minWidth,
                                  Canvas* near, Palette const* palette) {
  InitArgs args = argsFor(menu, std::move(onChange), minWidth, palette);
  bool const above = sideWithRoom(owner, args.size, screenBackend().screenSize(), kRelativeBelow) == kRelativeAbove;
  // Screen y counts up: below the owner, the menu's top is the owner's bottom.
  int const top = above ? owner.y1 + args.size.y : owner.y0;
  return openAt(std::move(args), XY<int>(owner.x0, top), near);
}

void MenuWindow::close(MenuData::Change const& change) {
  if (closing_)
    return;
  closing_ = true;
  getEventInterceptStack().remove(this);
  relinquishKbdFocus();
  GlobManager::requestDeletion(this);
  ChangeHandler const tell = std::move(onChange_);
  onChange_ = nullptr;
  if (tell)
    tell(change);
}

int MenuWindow::rowsWidth() const { return bar_ ? width() - bar_->width() : width(); }

Zo::Box<int> MenuWindow::rowBox(int index) const {
  int top = height() - verticalPadding() + offset_;
  for (int row = 0; row < index; ++row)
    top -= rowHeight(menu_.item(row));
  return Zo::Box<int>(0, top - rowHeight(menu_.item(index)), rowsWidth(), top);
}

void MenuWindow::setScrollOffset(int offset) {
  offset = std::clamp(offset, 0, maxScrollOffset());
  if (offset == offset_)
    return;
  offset_ = offset;
  if (bar_)
    bar_->setThumbPosition(static_cast<double>(offset_) / maxScrollOffset());
  invalidate();
}

void MenuWindow::scrollToShow(int index) {
  if (!bar_ || index < 0)
    return;
  // The first and the last row bring the padding beyond them along.
  int const above = index == 0 ? verticalPadding() : 0;
  int const below = index == menu_.size() - 1 ? verticalPadding() : 0;
  Zo::Box<int> const row = rowBox(index);
  if (row.y1 + above > height())
    setScrollOffset(offset_ - (row.y1 + above - height()));
  else if (row.y0 - below < 0)
    setScrollOffset(offset_ - (row.y0 - below));
}

bool MenuWindow::takeBarMessage(Event const& event) {
  int requested = 0;
  if (!bar_ || event.sourceWidget != bar_ ||
      !bar_->requestedOffset(event.message, offset_, UifStd::getRowHeight(), maxScrollOffset(), requested))
    return false;
  setScrollOffset(requested);
  return true;
}

int MenuWindow::rowAt(XY<int> point) const {
  if (point.x < 0 || point.x >= rowsWidth() || point.y < 0 || point.y >= height())
    return -1;
  // One walk down the rows: a long menu is asked at every move of the pointer.
  int top = height() - verticalPadding() + offset_;
  for (int index = 0; index < menu_.size() && top > point.y; ++index) {
    top -= rowHeight(menu_.item(index));
    if (top <= point.y)
      return index;
  }
  return -1;
}

void MenuWindow::setHighlighted(int index, bool reveal) {
  if (index == highlighted_)
    return;
  // Painting may happen at once, so the new state comes before the damage.
  int const previous = highlighted_;
  highlighted_ = index;
  if (reveal)
    scrollToShow(highlighted_);
  if (previous >= 0)
    invalidate(rowBox(previous));
  if (highlighted_ >= 0)
    invalidate(rowBox(highlighted_));
  if (onChange_)
    onChange_(MenuData::Change{MenuData::Change::kHighlighted, highlighted_});
}

int MenuWindow::reactToKey(int key) {
  switch (key & ~kKeyModifierMask) {
  case kKeyEscape:
    close(MenuData::Change{MenuData::Change::kCancelled, -1});
    return 1;
  case kKeyReturn:
    if (highlighted_ >= 0)
      close(MenuData::Change{MenuData::Change::kChosen, highlighted_});
    return 1;
  case kKeyDown:
    if (int const next = menu_.nextSelectable(highlighted_, 1); next >= 0)
      setHighlighted(next);
    return 1;
  case kKeyUp:
    if (int const previous = menu_.nextSelectable(highlighted_ < 0 ? menu_.size() : highlighted_, -1); previous >= 0)
      setHighlighted(previous);
    return 1;
  case kKeyHome:
    if (int const first = menu_.nextSelectable(-1, 1); first >= 0)
      setHighlighted(first);
    return 1;
  case kKeyEnd:
    if (int const last = menu_.nextSelectable(menu_.size(), -1); last >= 0)
      setHighlighted(last);
    return 1;
  default:
    return 0;
  }
}

int MenuWindow::react(Event const& event) {
  if (closing_)
    return 1;
  if (event.type == Event::kKeyDown)
    return reactToKey(event.key);
  if (event.isMessage() && takeBarMessage(event))
    return 1;
  if (!event.isMouse())
    return Glob::react(event);
  if (event.type == Event::kMouseWheel)
    setScrollOffset(offset_ - event.wheel * UifStd::getRowHeight());
  // The pointer highlights what lies under it, also as rows scroll under it,
  // without scrolling a row it only half shows.
  int const row = rowAt(event.position);
  bool const choosable = row >= 0 && menu_.item(row).isSelectable();
  if (event.type == Event::kMouseMove || event.type == Event::kMouseEnter || event.type == Event::kMouseWheel)
    setHighlighted(choosable ? row : -1, false);
  else if (event.type == Event::kMouseUp && mouse_left_event(event) && choosable)
    close(MenuData::Change{MenuData::Change::kChosen, row});
  return 1;
}

int MenuWindow::intercept(Event const& event) {
  if (closing_ || event.type != Event::kMouseDown)
    return 0;
  if (Zo::Box<int>(0, 0, width(), height()).contains(event.position))
    return 0;
  // The press that closes the menu does nothing else.
  close(MenuData::Change{MenuData::Change::kCancelled, -1});
  return 1;
}

void MenuWindow::drawRow(CanvasRenderer& renderer, int index) const {
  MenuItem const& item = menu_.item(index);
  Palette const& palette = getPalette();
  Zo::Box<int> const box = rowBox(index);
  int const inset = UifStd::getIndentWidth();
  if (item.style == MenuItem::kSeparator) {
    double const y = (box.y0 + box.y1) / 2 + 0.5;
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(markGutter(), y),
                                                   XY<double>(box.x1 - textEndPadding(), y), 1.0, palette.window(5)));
    return;
  }
  if (item.background.use())
    renderer.renderPrimitive(Glib::RectDescription(box, item.background));
  if (index == highlighted_) {
    Zo::Box<double> const band(box.x0 + inset, box.y0, box.x1 - inset, box.y1);
    renderer.renderPrimitive(Glib::RoundedRectDescription(band, inset * 1.5, palette.selection()));
  }
  Colour text = item.textColour.use() ? item.textColour : palette.text();
  if (item.style == MenuItem::kHeading && !item.textColour.use())
    text = palette.subheadingText();
  else if (!item.active)
    text = Palette::inactive(text, palette.window());
  if (index == menu_.getSelected()) {
    double const radius = UifStd::getRowHeight() / 8.0;
    renderer.renderPrimitive(Glib::EllipseDescription::disc(
        XY<double>(markGutter() / 2.0 + inset / 2.0, (box.y0 + box.y1) / 2.0), radius, text));
  }
  int const textStart = item.style == MenuItem::kHeading ? inset * 2 : markGutter();
  Zo::Box<double> const area(textStart, box.y0, box.x1 - inset, box.y1);
  MenuLabelColumns const columns = MenuLabelColumns::split(item.text.getString());
  renderer.renderPrimitive(Glib::TextDescription(columns.left, area, fontFor(item), text));
  if (!columns.right.empty())
    renderer.renderPrimitive(
        Glib::TextDescription(columns.right, area, fontFor(item), text, Glib::eTextAlignment::Right));
}

void MenuWindow::draw(CanvasRenderer& renderer) {
  int top = height() - verticalPadding() + offset_;
  for (int index = 0; index < menu_.size() && top > 0; ++index) {
    int const rowTop = top;
    top -= rowHeight(menu_.item(index));
    if (top < height() && rowTop > 0)
      drawRow(renderer, index);
  }
  Zo::Box<double> const edge(0.5, 0.5, width() - 0.5, height() - 0.5);
  renderer.renderPrimitive(Glib::RoundedRectDescription(edge, 0.0, Colour::invalid(), getPalette().window(5)));
}
