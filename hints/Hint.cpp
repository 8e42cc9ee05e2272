#include <zowidgets/hints/Hint.h>

#include <zowidgets/host/shell/Preferences.h>

#include <string>

Hint::Hint(UIString const& text, unsigned id, LightweightString<wchar_t> const& link)
    : text_(text), id_(id), link_(link) {}

bool Hint::isHintID(LightweightString<char> const& key) { return !key.empty() && key.startsWith(kKeyPrefix); }

LightweightString<char> Hint::makePersistableID(unsigned id) {
  return LightweightString<char>(kKeyPrefix) + std::to_string(id).c_str();
}

void Hint::setIssued(bool issued) const {
  if (id_ != kNoPersistentId)
    prefs().setPreference(makePersistableID(id_), issued);
}

bool Hint::hasBeenIssued() const {
  return id_ == kNoPersistentId || prefs().getPreference(makePersistableID(id_), false);
}
