#include <zowidgets/fonts/FontChooserButton.h>

#include <zowidgets/fonts/FontLegend.h>
#include <zowidgets/textentry/TextFilterWidget.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>

#include <algorithm>

FontChooserButton::Event::Event(FontDefinition const& font) : font(font) {}

FontChooserButton::InitArgs::InitArgs(XY<int> size, FontDefinition const& font,
                                      LightweightString<char> const& recentFontsKey)
    : DropDownButton2<FontChooserPanel>::InitArgs(UIString(font.name), size,
                                                  FontChooserPanel::InitArgs(nullptr, recentFontsKey)),
      font(font) {}

FontChooserButton::FontChooserButton(InitArgs const& args)
    : DropDownButton2<FontChooserPanel>(args), font_(args.font), callback_(args.callback) {
  // Every panel opened edits the button's own font.
  FontChooserPanel::InitArgs panel = getDropDownArgs();
  panel.font = &font_;
  setDropDownArgs(panel);
  setDropDownAlignment(kAlignStart, kRelativeBelow);
  using Callback = iCallbackBase<int, ValServerEvent<FontDefinition>>;
  fontGuard_ =
      font_.addListener(Zo::Ptr<Callback>(new MethodCallback<FontChooserButton, ValServerEvent<FontDefinition>>(
                            this, &FontChooserButton::handleFontChange)),
                        NotifyMsgTypeDictionary::instance().anyType());
  updateLegend();
}

void FontChooserButton::displayDropDown() {
  DropDownButton2<FontChooserPanel>::displayDropDown();
  if (FontChooserPanel* panel = getDropDownPanel())
    panel->getFilter()->claimKbdFocus();
}

void FontChooserButton::setSelectedFont(FontDefinition const& font) {
  font_.assignQuietly(font);
  updateLegend();
}

void FontChooserButton::updateLegend() { showFontLegend(*this, font_.get()); }

int FontChooserButton::handleFontChange(ValServerEvent<FontDefinition> const& event) {
  if (event.phase != ValServerEvent<FontDefinition>::kChanged)
    return 0;
  if (callback_)
    callback_->execute(NotifyMsg(kChangedMsg, Zo::Ptr<iObject>(new Event(event.value))));
  updateLegend();
  return 0;
}

int FontChooserButton::react(::Event const& event) {
  if (event.type == ::Event::kMouseWheel && isActive()) {
    handleMouseWheelDelta(event.wheel);
    return 1;
  }
  return DropDownButton2<FontChooserPanel>::react(event);
}

void FontChooserButton::handleMouseWheelDelta(int delta) {
  std::vector<Glib::FontDesc> const fonts = FontChooserPanel::getFontList(LightweightString<char>());
  LightweightString<char> const current = font_.get().name.toUTF8();
  auto const found =
      std::find_if(fonts.begin(), fonts.end(), [&](Glib::FontDesc const& font) { return font.family() == current; });
  if (found == fonts.end())
    return;
  auto const index = static_cast<std::ptrdiff_t>(found - fonts.begin());
  std::ptrdiff_t const last = static_cast<std::ptrdiff_t>(fonts.size()) - 1;
  std::ptrdiff_t const next = delta > 0 ? std::max<std::ptrdiff_t>(index - 1, 0) : std::min(index + 1, last);
  FontDefinition font = font_.get();
  font.name = LightweightString<wchar_t>::fromUTF8(fonts[static_cast<std::size_t>(next)].family().view());
  // At either end the font is written all the same, and its listeners told.
  setFontWithNotices(font_, font);
}
