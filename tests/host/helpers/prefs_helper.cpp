// A second process for the preference tests: it sets or prints one value of
// prefs(), the store that $ZOWIDGETS_CONFIG_DIR points at.
//   prefs_helper set <key> <bool|int|double|text> <value>
//   prefs_helper set-and-abort <key> <bool|int|double|text> <value>
//   prefs_helper get <key> <bool|int|double|text>
#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/shell/Preferences.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

int usage() {
  std::fprintf(stderr, "usage: prefs_helper set|set-and-abort|get <key> <bool|int|double|text> [value]\n");
  return 2;
}

bool set(LightweightString<char> const& key, std::string_view type, char const* value) {
  LightweightString<wchar_t> text = LightweightString<wchar_t>::fromUTF8(value);
  if (type == "bool")
    prefs().setPreference(key, DataConvert::convert<LightweightString<wchar_t>, bool>(text));
  else if (type == "int")
    prefs().setPreference(key, DataConvert::convert<LightweightString<wchar_t>, int>(text));
  else if (type == "double")
    prefs().setPreference(key, DataConvert::convert<LightweightString<wchar_t>, double>(text));
  else if (type == "text")
    prefs().setPreference(key, text);
  else
    return false;
  return true;
}

bool print(LightweightString<char> const& key, std::string_view type) {
  LightweightString<wchar_t> text;
  if (type == "bool")
    text = DataConvert::convert<bool, LightweightString<wchar_t>>(prefs().getPreference(key, false));
  else if (type == "int")
    text = DataConvert::convert<int, LightweightString<wchar_t>>(prefs().getPreference(key, 0));
  else if (type == "double")
    text = DataConvert::convert<double, LightweightString<wchar_t>>(prefs().getPreference(key, 0.0));
  else if (type == "text")
    text = prefs().getPreference(key, L"");
  else
    return false;
  std::fputs(text.toUTF8().c_str(), stdout);
  return true;
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 4)
    return usage();
  std::string_view const command = argv[1];
  LightweightString<char> const key(argv[2]);
  std::string_view const type = argv[3];
  if (command == "get")
    return print(key, type) ? 0 : usage();
  if (argc < 5 || (command != "set" && command != "set-and-abort"))
    return usage();
  if (!set(key, type, argv[4]))
    return usage();
  if (command == "set-and-abort")
    std::abort(); // no exit handlers, no flushing: only what is on disk counts
  return 0;
}
