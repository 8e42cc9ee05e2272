#include <zowidgets/host/widgets/panels/TabbedDialogue.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace {

// The look of the tabs and the frame round the pages. The current tab is as
// high as the row and takes the page colour, joined to the frame below; the
// others are a row high and recessed.
struct TabLook {
  int rowHeight;   // the tab row: a row height and an indent above it
  int tabHeight;   // the tabs that are not current
  int padding;     // beside a tab's title
  int minTabWidth; // unless the row is too narrow for every tab
  int spacing;     // between tabs
  int edge;        // the frame's lines
  int margin;      // the frame's margin on each side of the pages
  double radius;   // the tabs' top corners
  Colour page;
  Colour recessed;
  Colour hovered;
  Colour line;
  Colour title;
  Colour currentTitle;
  Colour focus;

  static TabLook from(Palette const& palette) {
    int const indent = UifStd::getIndentWidth();
    int const edge = std::max(1, static_cast<int>(std::lround(UifStd::getScale())));
    return TabLook{UifStd::getRowHeight() + indent,
                   UifStd::getRowHeight(),
                   2 * UifStd::getWidgetGap(),
                   2 * UifStd::getRowHeight(),
                   std::max(1, indent / 2),
                   edge,
                   edge + indent,
                   indent * 1.5,
                   palette.window(),
                   palette.window(-2),
                   palette.window(1),
                   palette.window(5),
                   palette.text(),
                   palette.headingText(),
                   palette.selection()};
  }
  static TabLook sizes() { return from(UifStd::getColourScheme()); }
};

// The face of a tab: its own colour, toned down when it is not current.
Colour tabFace(TabLook const& look, TabbedDialogue::Page const& tab, bool current, bool hovered) {
  if (tab.colour.use())
    return current ? tab.colour : Colour::mix(tab.colour, look.recessed, hovered ? 0.75 : 0.5);
  if (current)
    return look.page;
  return hovered ? look.hovered : look.recessed;
}

// Whether the keyboard focus is on `page` or inside it.
bool holdsFocus(Glob const* page) {
  Glob const* focus = get_kbd_focus();
  return focus && (focus == page || isParentedTo(focus, page));
}

} // namespace

// The row of tabs: a widget of its own so that it alone takes the keyboard
// focus, and a click on a page's background leaves the focus where it is.
class TabbedDialogue::TabRow : public Glob {
public:
  TabRow(TabbedDialogue& owner, XY<int> size) : Glob(GlobCreationInfo(size)), owner_(owner) { setCanBeIt(true); }
  char const* idstring() const override { return "TabRow"; }

  int getHovered() const noexcept { return hovered_; }
  UIString getTooltip() const override {
    return hovered_ >= 0 && hovered_ < owner_.getNumTabs() ? owner_.getTab(hovered_).tooltip.text : UIString();
  }

  int react(Event const& event) override {
    switch (event.type) {
    case Event::kMouseDown:
      if (mouse_left_event(event)) {
        int const tab = owner_.tabAt(event.position);
        if (tab >= 0)
          owner_.setCurrentTab(tab);
        return 1;
      }
      return 0;
    case Event::kMouseEnter:
    case Event::kMouseMove:
      setHovered(owner_.tabAt(event.position));
      return 1;
    case Event::kMouseLeave:
      setHovered(-1);
      return 1;
    case Event::kKeyDown:
      return reactToKey(event.key);
    default:
      return Glob::react(event);
    }
  }

protected:
  void draw(CanvasRenderer& renderer) override {
    TabLook const look = TabLook::from(getPalette());
    int const current = owner_.getCurrentTab();
    for (int tab = 0; tab < owner_.getNumTabs(); ++tab)
      if (tab != current)
        drawTab(renderer, look, tab);
    // The line the tabs stand on: the frame's top, open under the current tab.
    Zo::Box<int> const open = owner_.getTabBox(current);
    renderer.renderPrimitive(
        Glib::RectDescription(Zo::Box<int>(0, 0, open.empty() ? width() : open.x0, look.edge), look.line));
    if (!open.empty()) {
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(open.x1, 0, width(), look.edge), look.line));
      drawTab(renderer, look, current);
    }
  }

private:
  int reactToKey(int key) {
    int const tabs = owner_.getNumTabs();
    int const current = owner_.getCurrentTab();
    switch (key) {
    case kKeyLeft:
      owner_.setCurrentTab(std::max(0, current - 1));
      return 1;
    case kKeyRight:
      owner_.setCurrentTab(std::min(tabs - 1, current + 1));
      return 1;
    case kKeyHome:
      owner_.setCurrentTab(0);
      return 1;
    case kKeyEnd:
      owner_.setCurrentTab(tabs - 1);
      return 1;
    default:
      return 0;
    }
  }

  void setHovered(int tab) {
    if (tab == hovered_)
      return;
    invalidate(owner_.getTabBox(hovered_));
    hovered_ = tab;
    invalidate(owner_.getTabBox(hovered_));
  }

  void drawTab(CanvasRenderer& renderer, TabLook const& look, int tab) const {
    bool const current = tab == owner_.getCurrentTab();
    Zo::Box<int> const box = owner_.getTabBox(tab);
    Page const& page = owner_.getTab(tab);
    // The bottom corners lie below the row and are cut off by it.
    Zo::Box<double> const face(box.x0, box.y0 - look.radius - look.edge, box.x1, box.y1);
    renderer.renderPrimitive(Glib::RoundedRectDescription(
        face, look.radius, tabFace(look, page, current, tab == hovered_), look.line, look.edge));
    if (current && hasKbdFocus()) {
      double const inset = look.edge;
      Zo::Box<double> const ring(face.x0 + inset, face.y0, face.x1 - inset, face.y1 - inset);
      renderer.renderPrimitive(Glib::RoundedRectDescription(ring, std::max(1.0, look.radius - inset), Colour::invalid(),
                                                            look.focus, look.edge));
    }
    Colour colour = current ? look.currentTitle : look.title;
    if (!isActive())
      colour = Palette::inactive(colour, look.page);
    Zo::Box<double> const text(box.x0 + look.padding / 2.0, box.y0 + look.edge, box.x1 - look.padding / 2.0, box.y1);
    // A tab squeezed narrower than an ellipsis shows no title: cut to
    // nothing, a title would still draw its ellipsis over the neighbours.
    if (text.width() < Glib::TextLayout::measure(L"\u2026", UifStd::getFont()).width)
      return;
    Glib::TextDescription title(page.title.getString(), text, UifStd::getFont(), colour, Glib::eTextAlignment::Centre);
    title.ellipsis = true;
    renderer.renderPrimitive(title);
  }

  TabbedDialogue& owner_;
  int hovered_ = -1;
};

int TabbedDialogue::minHeight() { return TabLook::sizes().rowHeight; }

int TabbedDialogue::calcBorderSize(int sides) { return TabLook::sizes().margin * std::popcount(unsigned(sides & 15)); }

int TabbedDialogue::calcHeightForContents(int contentHeight) {
  return minHeight() + calcBorderSize(4 | 8) + std::max(0, contentHeight);
}

TabbedDialogue::TabbedDialogue(InitArgs const& args) : Glob(args), tabs_(args.tabs), pages_(args.tabs.size()) {
  addListener(args.callback);
  tabRow_ = new TabRow(*this, XY<int>(std::max(0, width()), minHeight()));
  addChild(tabRow_, TopLeft(0, 0));
  current_ = tabs_.empty() ? -1 : 0;
}

XY<int> TabbedDialogue::getPageSize() const {
  Zo::Box<int> const area = getUserArea();
  return XY<int>(area.width(), area.height());
}

Zo::Box<int> TabbedDialogue::getUserArea() const {
  int const margin = TabLook::sizes().margin;
  int const top = height() - minHeight() - margin;
  if (top <= margin)
    return {};
  return Zo::Box<int>(margin, margin, std::max(margin, width() - margin), top);
}

void TabbedDialogue::fitPage(Glob& page) const {
  XY<int> const size = getPageSize();
  page.resize(size.x, size.y);
}

void TabbedDialogue::resize(double newWidth, double newHeight) {
  Drawable::Suspender holdRedraws;
  Glob::resize(newWidth, newHeight);
  tabRow_->resize(width(), minHeight());
  for (Glob* page : pages_)
    if (page)
      fitPage(*page);
}

void TabbedDialogue::tell(int kind, int tab) { broadcast(TabbedDialogueEvent{kind, tab, this}); }

void TabbedDialogue::setTabs(std::vector<Page> const& tabs) {
  Drawable::Suspender holdRedraws;
  for (Glob* page : pages_)
    if (page)
      removeWidget(page);
  tabs_ = tabs;
  pages_.assign(tabs_.size(), nullptr);
  current_ = -1;
  tabRow_->invalidate();
  tell(TabbedDialogueEvent::kTabsChanged, -1);
  if (!tabs_.empty())
    changeCurrent(0);
}

int TabbedDialogue::addTab(Page const& tab) { return addPageForTab(tab, nullptr); }

int TabbedDialogue::addPageForTab(Page const& tab, Glob* page) {
  Drawable::Suspender holdRedraws;
  int const index = getNumTabs();
  tabs_.push_back(tab);
  pages_.push_back(page);
  if (page) {
    page->setVisible(false);
    addChild(page, UserTopLeft(0, 0));
    fitPage(*page);
  }
  tabRow_->invalidate();
  tell(TabbedDialogueEvent::kTabsChanged, index);
  if (current_ < 0)
    changeCurrent(index);
  return index;
}

Glob* TabbedDialogue::removePage(int index) {
  if (index < 0 || index >= getNumTabs())
    return nullptr;
  Drawable::Suspender holdRedraws;
  Glob* page = pages_[static_cast<std::size_t>(index)];
  if (page) {
    if (holdsFocus(page))
      tabRow_->claimKbdFocus();
    page->setVisible(false);
    releaseChild(page);
  }
  tabs_.erase(tabs_.begin() + index);
  pages_.erase(pages_.begin() + index);
  tabRow_->invalidate();
  tell(TabbedDialogueEvent::kTabsChanged, index);
  if (index < current_) {
    --current_;
  } else if (index == current_) {
    current_ = -1;
    if (!tabs_.empty())
      changeCurrent(std::min(index, getNumTabs() - 1));
    else
      tell(TabbedDialogueEvent::kChanged, -1);
  }
  return page;
}

Glob* TabbedDialogue::getPage(int index) const {
  return index >= 0 && index < getNumTabs() ? pages_[static_cast<std::size_t>(index)] : nullptr;
}

int TabbedDialogue::findPage(Glob const* page) const {
  if (!page)
    return -1;
  auto const found = std::find(pages_.begin(), pages_.end(), page);
  return found == pages_.end() ? -1 : static_cast<int>(found - pages_.begin());
}

void TabbedDialogue::setCurrentTab(int index) {
  if (index < 0 || index >= getNumTabs() || index == current_)
    return;
  changeCurrent(index);
}

void TabbedDialogue::changeCurrent(int index) {
  tell(TabbedDialogueEvent::kChanging, index);
  Drawable::Suspender holdRedraws;
  Glob* const before = getCurrentPage();
  bool const focusWasOnPage = before && holdsFocus(before);
  current_ = index;
  showCurrentOnly();
  if (focusWasOnPage)
    tabRow_->claimKbdFocus();
  tabRow_->invalidate();
  tell(TabbedDialogueEvent::kChanged, index);
}

void TabbedDialogue::showCurrentOnly() {
  Glob* const shown = getCurrentPage();
  for (Glob* page : pages_)
    if (page && page != shown)
      page->setVisible(false);
  if (shown)
    shown->setVisible(true);
}

std::vector<int> TabbedDialogue::tabWidths() const {
  TabLook const look = TabLook::sizes();
  std::vector<int> widths;
  widths.reserve(tabs_.size());
  for (Page const& tab : tabs_) {
    double const text = Glib::TextLayout::measure(tab.title.getString(), UifStd::getFont()).width;
    widths.push_back(std::max(look.minTabWidth, static_cast<int>(std::ceil(text)) + 2 * look.padding));
  }
  int const room = width() - 2 * look.margin;
  int const wanted = std::accumulate(widths.begin(), widths.end(), 0) + look.spacing * (getNumTabs() - 1);
  if (!widths.empty() && wanted > room) {
    // Every tab gets an even share; titles are cut to fit.
    int const share = std::max(1, (room - look.spacing * (getNumTabs() - 1)) / getNumTabs());
    std::fill(widths.begin(), widths.end(), share);
  }
  return widths;
}

Zo::Box<int> TabbedDialogue::getTabBox(int index) const {
  if (index < 0 || index >= getNumTabs())
    return {};
  TabLook const look = TabLook::sizes();
  std::vector<int> const widths = tabWidths();
  int x = look.margin;
  for (int tab = 0; tab < index; ++tab)
    x += widths[static_cast<std::size_t>(tab)] + look.spacing;
  int const top = index == current_ ? look.rowHeight : look.tabHeight;
  return Zo::Box<int>(x, 0, x + widths[static_cast<std::size_t>(index)], top);
}

int TabbedDialogue::tabAt(XY<int> point) const {
  // Hits count across the whole height of the row, above the lower tabs too.
  for (int tab = 0; tab < getNumTabs(); ++tab) {
    Zo::Box<int> const box = getTabBox(tab);
    if (point.x >= box.x0 && point.x < box.x1 && point.y >= 0 && point.y < minHeight())
      return tab;
  }
  return -1;
}

int TabbedDialogue::react(Event const& event) {
  if (event.type == Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyTab && (event.modifiers & kKeyCtrl) &&
      getNumTabs() > 0) {
    int const step = (event.modifiers & kKeyShift) ? getNumTabs() - 1 : 1;
    setCurrentTab((std::max(current_, 0) + step) % getNumTabs());
    return 1;
  }
  return Glob::react(event);
}

void TabbedDialogue::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const pages = getUserArea();
  if (pages.empty())
    return;
  TabLook const look = TabLook::from(getPalette());
  // The frame's sides and bottom; its top is the tab row's line.
  Glib::RectDescription frame(Zo::Box<int>(0, 0, width(), height() - minHeight() + look.edge), Colour::invalid());
  frame.outline = look.line;
  frame.outlineWidth = look.edge;
  renderer.renderPrimitive(frame);
}
