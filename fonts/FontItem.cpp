#include <zowidgets/fonts/FontItem.h>

#include <zowidgets/host/base/JSON.h>

namespace {

constexpr char const* kNameKey = "name";
constexpr char const* kCategoryKey = "cat";

} // namespace

FontItem::FontItem(LightweightString<char> const& name, eFontCategory category)
    : name_(name), wideName_(LightweightString<wchar_t>::fromUTF8(name.view())), category_(category),
      font_(Glib::drawsLatinText(name) ? Glib::FontDesc(name, 0, 0) : Glib::FontDesc()), id_(makeID(name, category)) {}

LightweightString<wchar_t> FontItem::makeID(LightweightString<char> const& name, eFontCategory category) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startChild();
  builder.add(kNameKey, name);
  builder.add(kCategoryKey, static_cast<int>(category));
  builder.end();
  return LightweightString<wchar_t>::fromUTF8(builder.getText().view());
}

LightweightString<wchar_t> FontItem::makeID(FontDefinition const& font, eFontCategory category) {
  return makeID(font.name.toUTF8(), category);
}

FontItem FontItem::fromID(LightweightString<wchar_t> const& id) {
  Zo::Ptr<JSON::Element> const element = JSON::parse(id);
  if (!element || element->isArray() || !element->hasString(kNameKey))
    return FontItem({}, kOrdinaryFont);
  bool const recent = element->getNumber(kCategoryKey, 0.0) == static_cast<double>(kRecentFont);
  return FontItem(element->getString(kNameKey), recent ? kRecentFont : kOrdinaryFont);
}
