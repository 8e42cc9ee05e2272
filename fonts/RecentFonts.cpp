#include <zowidgets/fonts/RecentFonts.h>

#include <zowidgets/host/shell/Preferences.h>

#include <algorithm>

RecentFonts::RecentFonts(LightweightString<char> const& key) : key_(key) {
  if (key_.empty())
    return;
  LightweightString<wchar_t> const stored = prefs().getPreference(key_, L"");
  std::wstring_view rest = stored.view();
  while (!rest.empty() && size() < kMaxFonts) {
    std::size_t const end = std::min(rest.find(kSeparator), rest.size());
    if (end > 0)
      emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

bool RecentFonts::contains(LightweightString<wchar_t> const& name) const {
  return std::find(begin(), end(), name) != end();
}

void RecentFonts::add(LightweightString<wchar_t> const& name) {
  if (key_.empty() || name.empty() || name.find(kSeparator) != LightweightString<wchar_t>::npos)
    return;
  std::vector<LightweightString<wchar_t>> newest{name};
  for (LightweightString<wchar_t> const& older : *this) {
    if (newest.size() == kMaxFonts)
      break;
    if (older != name)
      newest.push_back(older);
  }
  assign(newest.begin(), newest.end());
  persist();
}

void RecentFonts::persist() const {
  if (key_.empty())
    return;
  LightweightString<wchar_t> joined;
  for (LightweightString<wchar_t> const& name : *this) {
    if (!joined.empty())
      joined += kSeparator;
    joined += name;
  }
  prefs().setPreference(key_, joined);
}
