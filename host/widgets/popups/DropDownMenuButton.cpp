#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {

std::vector<MenuItem> itemsFor(std::vector<UIString> const& strings) {
  std::vector<MenuItem> items;
  items.reserve(strings.size());
  for (UIString const& text : strings)
    items.emplace_back(text);
  return items;
}

} // namespace

DropDownMenuButton::DropDownMenuButton(InitArgs const& args) : Button(args) {
  setStrings(args.items, args.selected, kNoRedraw);
}

DropDownMenuButton::~DropDownMenuButton() {
  if (MenuWindow* window = getMenuWindow()) {
    window->detach();
    window->close(MenuData::Change{MenuData::Change::kCancelled, -1});
  }
}

void DropDownMenuButton::setStrings(std::vector<MenuItem> const& items, int selected, eRedrawFlag redraw) {
  closeMenu();
  menu_ = Menu(items);
  setSelectedItem(selected, kNoRedraw);
  if (menu_.getSelected() < 0)
    setLabel(UIString(), kNoRedraw);
  if (redraw != kNoRedraw)
    invalidate();
}

void DropDownMenuButton::setStrings(std::vector<UIString> const& strings, int selected, eRedrawFlag redraw) {
  setStrings(itemsFor(strings), selected, redraw);
}

void DropDownMenuButton::setSelectedItem(int index, eRedrawFlag redraw) {
  if (index < 0 || index >= menu_.size() || !menu_.item(index).isSelectable())
    return;
  menu_.setSelected(index);
  setLabel(menu_.item(index).text, redraw);
}

void DropDownMenuButton::observeChoice(ValObserver<int>* choice) {
  if (choice_)
    choice_->removeObserver(this);
  choice_ = choice;
  if (!choice_)
    return;
  choice_->addObserver(this);
  setSelectedItem(choice_->get());
}

void DropDownMenuButton::notifyPreValChanged(ValObserverBase const& value) {
  if (&value == choice_)
    closeMenu();
}

void DropDownMenuButton::notifyValChanged(ValObserverBase const& value) {
  if (&value == choice_)
    setSelectedItem(choice_->get());
}

void DropDownMenuButton::notifyValObserverGone(ValObserverBase const& value) {
  if (&value == choice_)
    choice_ = nullptr;
}

LightweightString<wchar_t> DropDownMenuButton::getSelectedItemNameW() const {
  int const selected = menu_.getSelected();
  return selected < 0 ? LightweightString<wchar_t>() : menu_.item(selected).text.getString();
}

int DropDownMenuButton::calcWidth(std::vector<UIString> const& strings, Glib::FontDesc const& font) {
  int widest = Button::calcWidth(UIString(), font);
  Glib::FontDesc const used = font.family().empty() && font.size() == 0 ? UifStd::getFont() : font;
  int const padding = Button::calcWidth(UIString(), font);
  for (UIString const& text : strings)
    widest = std::max(widest, MenuLabelColumns::measure(text.getString(), used) + padding);
  return widest + getRevealIndicatorWidth();
}

MenuWindow* DropDownMenuButton::getMenuWindow() const {
  return is_good_glob_ptr(menuWindow_, "MenuWindow") && !menuWindow_->isClosing() ? menuWindow_ : nullptr;
}

void DropDownMenuButton::openMenu() {
  if (getMenuWindow() || menu_.size() == 0)
    return;
  XY<int> const corner = screenPosition();
  Palette const palette = getPalette();
  menuWindow_ = MenuWindow::openUnder(
      menu_, Zo::Box<int>(corner.x, corner.y, corner.x + width(), corner.y + height()),
      [this](MenuData::Change const& change) { handleMenuChange(change); }, width(), canvas(), &palette);
  invalidate();
}

void DropDownMenuButton::closeMenu() {
  if (MenuWindow* window = getMenuWindow())
    window->close(MenuData::Change{MenuData::Change::kCancelled, -1});
}

void DropDownMenuButton::handleMenuChange(MenuData::Change const& change) {
  if (change.kind == MenuData::Change::kHighlighted)
    return;
  menuWindow_ = nullptr;
  claimKbdFocus();
  invalidate();
  if (change.kind != MenuData::Change::kChosen)
    return;
  setSelectedItem(change.index);
  if (choice_)
    choice_->set(change.index);
  if (selectionHook_)
    selectionHook_(change.index);
  Glob::sendMsg(parent(), dropDownMenuButtonMsg, this);
}

void DropDownMenuButton::performAction() {
  if (getMenuWindow())
    closeMenu();
  else
    openMenu();
}

Zo::Box<int> DropDownMenuButton::labelBox() const {
  return Zo::Box<int>(0, 0, std::max(0, width() - getRevealIndicatorWidth()), height());
}

void DropDownMenuButton::draw(CanvasRenderer& renderer) {
  drawFace(renderer);
  Zo::Box<int> const label = labelBox();
  Palette const& palette = getPalette();
  Zo::Box<double> const text(label.x0 + UifStd::getWidgetGap() * 2, label.y0, label.x1, label.y1);
  MenuLabelColumns const columns = MenuLabelColumns::split(getLabel());
  renderer.renderPrimitive(Glib::TextDescription(columns.left, text, UifStd::getFont(), labelColour()));
  if (!columns.right.empty())
    renderer.renderPrimitive(
        Glib::TextDescription(columns.right, text, UifStd::getFont(), labelColour(), Glib::eTextAlignment::Right));
  // A small downward chevron, centred in the indicator area.
  double const half = getRevealIndicatorWidth() / 5.0;
  double const cx = label.x1 + getRevealIndicatorWidth() / 2.0 - UifStd::getIndentWidth() / 2.0;
  double const cy = height() / 2.0;
  double const thickness = std::max(1.0, UifStd::getIndentWidth() * 0.75);
  Colour const arrow = isActive() ? palette.text(-3) : labelColour();
  renderer.renderPrimitive(
      Glib::LineDescription(XY<double>(cx - half, cy + half / 2), XY<double>(cx, cy - half / 2), thickness, arrow));
  renderer.renderPrimitive(
      Glib::LineDescription(XY<double>(cx, cy - half / 2), XY<double>(cx + half, cy + half / 2), thickness, arrow));
}

TitleMenuButton::TitleMenuButton(InitArgs const& args)
    : Glob(args), title_(args.title.getString()), titleWidth_(args.titleWidth) {
  if (getSize().y == 0)
    resize(getSize().x, Button::calcHeight());
  if (getSize().x == 0) {
    std::vector<UIString> strings;
    for (MenuItem const& item : args.items)
      strings.push_back(item.text);
    resize(titleWidth() + DropDownMenuButton::calcWidth(strings), height());
  }
  DropDownMenuButton::InitArgs buttonArgs(args.items, args.selected,
                                          XY<int>(std::max(1, width() - titleWidth()), height()));
  button_ = createChild<DropDownMenuButton>(buttonArgs, RightCentre(0, 0));
}

int TitleMenuButton::calcTitleWidth(UIString const& title) {
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(title.getString(), UifStd::getFont());
  return static_cast<int>(std::ceil(metrics.width)) + UifStd::getWidgetGap() * 2;
}

int TitleMenuButton::titleWidth() const { return titleWidth_ > 0 ? titleWidth_ : calcTitleWidth(UIString(title_)); }

int TitleMenuButton::react(Event const& event) {
  if (event.isMessage() && event.sourceWidget == button_ &&
      event.message == DropDownMenuButton::dropDownMenuButtonMsg) {
    Glob::sendMsg(parent(), event.message, this);
    return 1;
  }
  return Glob::react(event);
}

void TitleMenuButton::draw(CanvasRenderer& renderer) {
  Zo::Box<double> const area(0, 0, titleWidth(), height());
  Colour const text =
      isActive() ? getPalette().text(-2) : Palette::inactive(getPalette().text(), getPalette().window());
  renderer.renderPrimitive(Glib::TextDescription(title_, area, UifStd::getFont(), text));
}
