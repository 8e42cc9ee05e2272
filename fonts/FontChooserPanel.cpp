#include <zowidgets/fonts/FontChooserPanel.h>

#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/fonts/FontDefinitionServer.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/TextFilterWidget.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

#include <algorithm>
#include <memory>
#include <mutex>

namespace {

constexpr ResId kBoldLabel = 11670;
constexpr ResId kItalicLabel = 11675;
constexpr int kRowsAcross = 10;
constexpr int kRowsDown = 15;

// A call into the panel from one of its widgets, dropped once the panel has
// gone; on the interface thread it runs at once.
template <class Event>
typename Broadcaster<Event>::Callback guarded(FontChooserPanel* panel, int (FontChooserPanel::*method)(Event const&)) {
  using Callback = iCallbackBase<int, Event>;
  return typename Broadcaster<Event>::Callback{
      UIThreadCallbackDupe<Event>::guarded(
          Zo::Ptr<Callback>(new MethodCallback<FontChooserPanel, Event>(panel, method)), panel),
      0};
}

// Case is ignored in ASCII letters only: the bytes of other UTF-8
// characters are compared as they are, never taken one by one for letters.
unsigned char asciiLower(char c) {
  auto const byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

bool lessIgnoringCase(LightweightString<char> const& a, LightweightString<char> const& b) {
  return std::lexicographical_compare(a.view().begin(), a.view().end(), b.view().begin(), b.view().end(),
                                      [](char x, char y) { return asciiLower(x) < asciiLower(y); });
}

bool equalIgnoringCase(LightweightString<char> const& a, LightweightString<char> const& b) {
  return !lessIgnoringCase(a, b) && !lessIgnoringCase(b, a);
}

// The installed families, sorted and made unique without regard to case,
// a row of the list made for each. Every chooser opened shows them, and they
// change only when fonts are installed or removed: kept, and shared by every
// chooser, until the host reports another list of families.
struct InstalledFamilies {
  std::shared_ptr<std::vector<LightweightString<char>> const> reported;
  std::vector<FontItem> items; // one a family, in order
};

std::shared_ptr<std::vector<FontItem> const> installedItems() {
  static std::mutex mutex;
  static std::shared_ptr<InstalledFamilies const> kept;
  std::lock_guard const lock(mutex);
  std::shared_ptr<std::vector<LightweightString<char>> const> reported = Glib::getAvailableFontsShared();
  if (!kept || reported != kept->reported) {
    std::vector<LightweightString<char>> families = *reported;
    std::stable_sort(families.begin(), families.end(), lessIgnoringCase);
    families.erase(std::unique(families.begin(), families.end(), equalIgnoringCase), families.end());
    auto made = std::make_shared<InstalledFamilies>();
    made->items.reserve(families.size());
    for (LightweightString<char> const& family : families)
      made->items.emplace_back(family, kOrdinaryFont);
    made->reported = std::move(reported);
    kept = std::move(made);
  }
  return std::shared_ptr<std::vector<FontItem> const>(kept, &kept->items);
}

// The recent families still installed, as rows of the recent part.
std::vector<FontItem> recentItems(RecentFonts const& recent, std::vector<FontItem> const& installed) {
  std::vector<FontItem> items;
  items.reserve(recent.size());
  for (LightweightString<wchar_t> const& name : recent) {
    LightweightString<char> const utf8 = name.toUTF8();
    auto const found = std::lower_bound(installed.begin(), installed.end(), utf8,
                                        [](FontItem const& item, LightweightString<char> const& wanted) {
                                          return lessIgnoringCase(item.name(), wanted);
                                        });
    if (found != installed.end() && equalIgnoringCase(found->name(), utf8))
      items.emplace_back(found->name(), kRecentFont);
  }
  return items;
}

} // namespace

FontChooserPanel::InitArgs::InitArgs(ValServer<FontDefinition>* font, LightweightString<char> recentFontsKey)
    : StandardPanel::InitArgs(GlobCreationInfo(calcSize())), font(font), recentFontsKey(std::move(recentFontsKey)) {
  setBorder(FontChooserPanel::border());
}

Border FontChooserPanel::border() {
  Border edge(0, 0, 15);
  int const margin = UifStd::getWidgetGap();
  edge.setMargins(margin, margin, margin, margin);
  return edge;
}

XY<int> FontChooserPanel::calcSize() {
  int const row = UifStd::getRowHeight();
  return calcPanelSize(XY<int>(row * kRowsAcross, row * kRowsDown), 0, border());
}

std::vector<FontChooserPanel::FontItem> FontChooserPanel::getFontList(RecentFonts const& recent) {
  std::shared_ptr<std::vector<FontItem> const> const installed = installedItems();
  std::vector<FontItem> items = recentItems(recent, *installed);
  items.insert(items.end(), installed->begin(), installed->end());
  return items;
}

std::vector<Glib::FontDesc> FontChooserPanel::getFontList(LightweightString<char> const& key) {
  std::vector<Glib::FontDesc> fonts;
  for (FontItem const& item : getFontList(RecentFonts(key)))
    fonts.emplace_back(item.name(), 0, 0);
  return fonts;
}

FontChooserPanel::FontChooserPanel(InitArgs const& args)
    : StandardPanel(args), font_(args.font ? args.font : &ownFont_), recent_(args.recentFontsKey),
      installedItems_(installedItems()), recentItems_(recentItems(recent_, *installedItems_)) {
  Drawable::Suspender const oneRepaint;
  setResizable(true);
  filterItems();
  addFilter();
  addTree();
  addFooter();
  orderTabStops();
  watchFont(font_);
  openingFont_ = font_->get();
  showFont(openingFont_);
}

FontChooserPanel::~FontChooserPanel() {
  fontGuard_.reset();
  if (fontChosen_)
    recent_.add(font_->get().name);
}

void FontChooserPanel::addFilter() {
  Zo::Box<int> const user = getUserArea();
  filter_ = createWidget<TextFilterWidget>(TextSearchWidget::InitArgs(XY<int>(user.width(), UifStd::getRowHeight())),
                                           Glob::UserTopLeft(0, 0));
  // Return and the search button search; typing narrows the list at once,
  // and the clear button empties the box without a search.
  filter_->addListener(guarded(this, &FontChooserPanel::handleFiltering));
  filter_->getTextBox()->addListener(guarded(this, &FontChooserPanel::handleTyping));
  filter_->getButton()->setCallback(
      Broadcaster<ButtonEvent>::makeCallback([this, stamp = EventHandler::stampOf(this)](ButtonEvent const&) {
        if (EventHandler::valid(this, stamp))
          applyFilter(filter_->getString());
      }));
}

void FontChooserPanel::addTree() {
  TreeView::InitArgs args{GlobCreationInfo(calcTreeSize())};
  args.adaptor = this;
  args.appearance = TreeView::kFlat;
  tree_ = createWidget<TreeView>(args, Glob::Below(UifStd::getWidgetGap(), filter_));
  tree_->setScrollbarDisplay(TreeView::kScrollbarAsNeeded);
  tree_->addListener(guarded(this, &FontChooserPanel::handleTreeEvent));
}

void FontChooserPanel::addFooter() {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  UIString const italicLabel(kItalicLabel);
  UIString const boldLabel(kBoldLabel);
  italic_ = createWidget<Checkbox>(Checkbox::InitArgs(italicLabel, XY<int>(Checkbox::calcWidth(italicLabel), row)),
                                   Glob::UserBottomRight(0, 0));
  italic_->setCallback(guarded(this, &FontChooserPanel::toggleItalic));
  bold_ = createWidget<Checkbox>(Checkbox::InitArgs(boldLabel, XY<int>(Checkbox::calcWidth(boldLabel), row)),
                                 Glob::LeftOf(gap, italic_));
  bold_->setCallback(guarded(this, &FontChooserPanel::toggleBold));

  FontDefinition const font = font_->get();
  // Wide enough for a swatch beside the chevron.
  XY<int> const swatchButton(row * 2, row);
  DropDownColourPickerButton::InitArgs text(
      swatchButton, ColourPicker::InitArgs(ColourPicker::kDefaultFlags, ColourData(font.fgColour)));
  text.callback = guarded(this, &FontChooserPanel::handleFGChange);
  textColour_ = createWidget<DropDownColourPickerButton>(text, Glob::UserBottomLeft(0, 0));
  DropDownColourPickerButton::InitArgs background(
      swatchButton, ColourPicker::InitArgs(ColourPicker::kDefaultFlags, ColourData(font.bgColour)));
  background.callback = guarded(this, &FontChooserPanel::handleBGChange);
  backgroundColour_ = createWidget<DropDownColourPickerButton>(background, Glob::RightOf(gap, textColour_));
  for (DropDownColourPickerButton* button : {textColour_, backgroundColour_})
    button->setDropDownAlignment(kAlignStart, kRelativeBelow);
}

// Tab visits the widgets as they read, the footer left to right, though
// the check boxes are made from the right.
void FontChooserPanel::orderTabStops() {
  unsigned stop = 0;
  for (Glob* widget : std::initializer_list<Glob*>{filter_->getTextBox(), filter_->getButton(), tree_, textColour_,
                                                   backgroundColour_, bold_, italic_})
    tabOrder().addTabStop(*widget, stop++);
}

XY<int> FontChooserPanel::calcTreeSize() const {
  Zo::Box<int> const user = getUserArea();
  int const taken = 2 * (UifStd::getRowHeight() + UifStd::getWidgetGap());
  return XY<int>(user.width(), std::max(user.height() - taken, 0));
}

void FontChooserPanel::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (!tree_)
    return;
  Drawable::Suspender const oneRepaint;
  filter_->resize(getUserArea().width(), filter_->height());
  XY<int> const treeSize = calcTreeSize();
  tree_->resize(treeSize.x, treeSize.y);
  layoutChildren();
}

LightweightString<wchar_t> FontChooserPanel::getSelectedFontID() const {
  FontDefinition const font = font_->get();
  return FontItem::makeID(font, recent_.contains(font.name) ? kRecentFont : kOrdinaryFont);
}

std::optional<std::size_t> FontChooserPanel::getChildCount(LightweightString<wchar_t> const& parentId) const {
  return parentId.empty() ? shown_.size() : 0;
}

iTreeViewAdaptor::Item FontChooserPanel::getChildItem(LightweightString<wchar_t> const&, std::size_t index) const {
  FontItem const& font = item(shown_[index]);
  Item item;
  item.id = font.getID();
  item.text = font.getName();
  item.font = font.font();
  item.colour = getPalette().text();
  return item;
}

std::optional<std::size_t> FontChooserPanel::getChildIndex(LightweightString<wchar_t> const& parentId,
                                                           LightweightString<wchar_t> const& id) const {
  if (!parentId.empty())
    return 0;
  FontItem const wanted = FontItem::fromID(id);
  for (std::size_t row = 0; row < shown_.size(); ++row) {
    FontItem const& shown = item(shown_[row]);
    if (shown.category() == wanted.category() && shown.name() == wanted.name())
      return row;
  }
  return shown_.size();
}

std::size_t FontChooserPanel::itemCount() const noexcept { return recentItems_.size() + installedItems_->size(); }

FontItem const& FontChooserPanel::item(std::size_t index) const {
  return index < recentItems_.size() ? recentItems_[index] : (*installedItems_)[index - recentItems_.size()];
}

std::vector<FontItem const*> FontChooserPanel::getItems() const {
  std::vector<FontItem const*> items;
  items.reserve(itemCount());
  for (std::size_t index = 0; index < itemCount(); ++index)
    items.push_back(&item(index));
  return items;
}

std::vector<FontItem const*> FontChooserPanel::getShownItems() const {
  std::vector<FontItem const*> shown;
  shown.reserve(shown_.size());
  for (std::size_t index : shown_)
    shown.push_back(&item(index));
  return shown;
}

void FontChooserPanel::applyFilter(LightweightString<wchar_t> const& text) {
  if (text == criteria_.pattern())
    return;
  Drawable::Suspender const oneRepaint;
  criteria_ = TextSearch::Criteria(text);
  filterItems();
  tree_->refresh(1);
  selectFamily(font_->get());
}

void FontChooserPanel::filterItems() {
  shown_.clear();
  std::size_t const count = itemCount();
  for (std::size_t i = 0; i < count; ++i)
    if (criteria_.empty() || TextSearch::match(item(i).wideName(), criteria_, TextSearch::kSubstring))
      shown_.push_back(i);
}

int FontChooserPanel::handleFiltering(TextSearchWidgetEvent const& event) {
  applyFilter(event.text);
  return 0;
}

int FontChooserPanel::handleTyping(TextBoxEvent const& event) {
  if (event.kind == TextBoxEvent::kTextChanged)
    applyFilter(event.text);
  return 0;
}

int FontChooserPanel::handleKeyboardEvent(int key) {
  if (key == kKeyDown && isParentedTo(get_kbd_focus(), filter_) && tree_->rowCount() > 0) {
    tree_->claimKbdFocus();
    if (tree_->getSelectedIndex() < 0)
      tree_->handleKeyboardEvent(key);
    return 1;
  }
  return StandardPanel::handleKeyboardEvent(key);
}

int FontChooserPanel::handleTreeEvent(TreeViewEvent const& event) {
  // Return or Space on a family confirms it: a panel that dropped down
  // closes, as after a click elsewhere.
  if (event.type == TreeViewEvent::kActivated) {
    if (auto* host = dynamic_cast<DropDownHostBase*>(getRootParent()); host && !host->isDetached())
      host->dismiss();
    return 0;
  }
  if (event.type != TreeViewEvent::kSelection)
    return 0;
  FontItem const chosen = FontItem::fromID(event.id);
  if (chosen.name().empty())
    return 0;
  FontDefinition font = font_->get();
  font.name = chosen.wideName();
  fontChosen_ = true;
  setFont(font);
  return 0;
}

int FontChooserPanel::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != DropDownHostBase::kEscapedMsg)
    return StandardPanel::handleMessageEvent(message, sender);
  fontChosen_ = false;
  if (!(font_->get() == openingFont_))
    setFont(openingFont_);
  return 1;
}

void FontChooserPanel::setFont(FontDefinition const& font) { setFontWithNotices(*font_, font); }

void FontChooserPanel::setStyleBit(unsigned bit, bool on) {
  FontDefinition font = font_->get();
  font.style = static_cast<unsigned char>(on ? font.style | bit : font.style & ~bit);
  setFont(font);
}

void FontChooserPanel::setColour(NormalisedRGB FontDefinition::*colour, ColourData const& value) {
  FontDefinition font = font_->get();
  font.*colour = value.toNormalisedRGB();
  setFont(font);
}

int FontChooserPanel::toggleBold(CheckboxEvent const& event) {
  setStyleBit(Glib::FontDesc::kBold, event.checked);
  return 0;
}

int FontChooserPanel::toggleItalic(CheckboxEvent const& event) {
  setStyleBit(Glib::FontDesc::kItalic, event.checked);
  return 0;
}

int FontChooserPanel::handleFGChange(ColourPickerEvent const& event) {
  setColour(&FontDefinition::fgColour, event.colour);
  return 0;
}

int FontChooserPanel::handleBGChange(ColourPickerEvent const& event) {
  setColour(&FontDefinition::bgColour, event.colour);
  return 0;
}

void FontChooserPanel::watchFont(ValServer<FontDefinition>* server) {
  using Callback = iCallbackBase<int, ValServerEvent<FontDefinition>>;
  fontGuard_ =
      server->addListener(Zo::Ptr<Callback>(new MethodCallback<FontChooserPanel, ValServerEvent<FontDefinition>>(
                              this, &FontChooserPanel::handleFontChange)),
                          NotifyMsgTypeDictionary::instance().anyType());
}

int FontChooserPanel::handleFontChange(ValServerEvent<FontDefinition> const& event) {
  if (event.phase == ValServerEvent<FontDefinition>::kGoingAway) {
    // The caller's value went first (a torn-off panel outliving its button):
    // the panel goes on with a copy of its own.
    fontGuard_.reset();
    ownFont_ = event.value;
    font_ = &ownFont_;
    watchFont(font_);
    return 0;
  }
  if (event.phase == ValServerEvent<FontDefinition>::kChanged)
    showFont(event.value);
  return 0;
}

void FontChooserPanel::showFont(FontDefinition const& font) {
  bool bold = (font.style & Glib::FontDesc::kBold) != 0;
  bool italic = (font.style & Glib::FontDesc::kItalic) != 0;
  bold_->setNewWidgetValue(bold, kRedrawNow);
  italic_->setNewWidgetValue(italic, kRedrawNow);
  textColour_->setColour(font.fgColour);
  backgroundColour_->setColour(font.bgColour);
  selectFamily(font);
}

void FontChooserPanel::selectFamily(FontDefinition const& font) {
  int const selected = tree_->getSelectedIndex();
  iTreeViewAdaptor::Item const* current = selected < 0 ? nullptr : tree_->itemAt(selected);
  if (current && FontItem::fromID(current->id).wideName() == font.name)
    return;
  if (!tree_->setSelectedItem(getSelectedFontID()))
    tree_->setSelectedItem(FontItem::makeID(font, kOrdinaryFont));
}
