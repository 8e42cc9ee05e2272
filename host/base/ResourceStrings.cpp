#include <zowidgets/host/base/ResourceStrings.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/base/Log.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

#include <dlfcn.h>

namespace {

namespace fs = std::filesystem;

constexpr char kEnglish[] = "en";

using StringTable = std::unordered_map<ResId, LightweightString<wchar_t>>;

struct StringTables {
  std::mutex mutex;
  bool loaded = false;
  fs::path folder;
  StringTable english;
  StringTable language;
  std::string languageCode = kEnglish;
  StringTable setAtRunTime;
};

StringTables& tables() {
  static StringTables* instance = new StringTables; // read by static destructors
  return *instance;
}

constexpr wchar_t kEllipsis = L'\u2026';

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// The folder of the shared library, whichever way the program found it.
fs::path libraryFolder() {
  static int const marker = 0;
  Dl_info info{};
  if (::dladdr(&marker, &info) == 0 || !info.dli_fname)
    return {};
  return fs::path(info.dli_fname).parent_path();
}

// Installed beside the library, or still in the source tree.
fs::path findTableFolder() {
  fs::path const candidates[] = {libraryFolder() / ZO_STRINGS_RELATIVE_DIR, fs::path(ZO_STRINGS_SOURCE_DIR)};
  for (fs::path const& folder : candidates) {
    std::error_code error;
    if (fs::exists(folder / "en.json", error))
      return folder;
  }
  LogBoth("no string tables found; resource texts show as placeholders");
  return {};
}

// A table is one JSON object of texts keyed by their ids in decimal. Anything
// else in the file makes it malformed, so that a mistake shows at once.
std::optional<StringTable> tableFrom(JSON::Element const& root) {
  if (root.isArray() || root.getNumChildren() != 0 || root.getNumBoolAttribs() != 0 || root.getNumNumericAttribs() != 0)
    return std::nullopt;
  StringTable table;
  for (auto const& [key, text] : root.getStringAttribs()) {
    ResId id = 0;
    auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), id);
    if (error != std::errc() || end != key.data() + key.size() || key.empty() || key.front() == '-')
      return std::nullopt;
    table[id] = LightweightString<wchar_t>::fromUTF8(text);
  }
  return table;
}

std::optional<StringTable> readTable(fs::path const& file) {
  std::error_code error;
  if (!fs::exists(file, error))
    return std::nullopt;
  Zo::Ptr<JSON::Element> root = JSON::parseFile(toWide(file.string()));
  std::optional<StringTable> table = root ? tableFrom(*root) : std::nullopt;
  if (!table)
    LogBoth("string table '" + file.string() + "' is malformed; it is not used");
  return table;
}

// Codes name files, so they are letters, digits, '-' and '_' only.
bool isLanguageCode(std::string_view code) {
  return !code.empty() && std::all_of(code.begin(), code.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
  });
}

bool chooseLanguage(StringTables& t, std::string_view code) {
  if (code.empty()) {
    char const* fromEnvironment = std::getenv("ZOWIDGETS_LANGUAGE");
    code = fromEnvironment && *fromEnvironment ? fromEnvironment : kEnglish;
  }
  t.language.clear();
  t.languageCode = kEnglish;
  if (code == kEnglish)
    return true;
  if (!isLanguageCode(code) || t.folder.empty())
    return false;
  std::optional<StringTable> table = readTable(t.folder / (std::string(code) + ".json"));
  if (!table)
    return false;
  t.language = std::move(*table);
  t.languageCode = code;
  return true;
}

StringTables& loadedTables() {
  StringTables& t = tables();
  if (!t.loaded) {
    t.loaded = true;
    t.folder = findTableFolder();
    if (!t.folder.empty())
      t.english = readTable(t.folder / "en.json").value_or(StringTable());
    chooseLanguage(t, {});
  }
  return t;
}

LightweightString<wchar_t> const* find(StringTable const& table, ResId id) {
  auto found = table.find(id);
  return found == table.end() ? nullptr : &found->second;
}

LightweightString<wchar_t> const* findText(StringTables const& t, ResId id) {
  for (StringTable const* table : {&t.setAtRunTime, &t.language, &t.english})
    if (auto text = find(*table, id))
      return text;
  return nullptr;
}

LightweightString<wchar_t> placeholder(ResId id) {
  return LightweightString<wchar_t>(L"\u2039res ") + DataConvert::convert<int, LightweightString<wchar_t>>(id) +
         L"\u203A";
}

} // namespace

LightweightString<wchar_t> resourceStrW(ResId id) {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  auto text = findText(loadedTables(), id);
  return text ? *text : placeholder(id);
}

bool hasResourceString(ResId id) {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  return findText(loadedTables(), id) != nullptr;
}

void setResourceString(ResId id, LightweightString<wchar_t> const& text) {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  t.setAtRunTime[id] = text;
}

void clearResourceStrings() {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  t.setAtRunTime.clear();
}

bool setResourceLanguage(std::string_view language) {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  return chooseLanguage(loadedTables(), language);
}

LightweightString<char> resourceLanguage() {
  StringTables& t = tables();
  std::lock_guard lock(t.mutex);
  return LightweightString<char>(loadedTables().languageCode);
}

LightweightString<wchar_t> ellipsisResourceStrW(ResId id) {
  auto text = resourceStrW(id);
  if (!text.empty() && !text.endsWith(std::wstring_view(&kEllipsis, 1)) && !text.endsWith(L"..."))
    text += kEllipsis;
  return text;
}

ResStrFmt::ResStrFmt(ResId id) : format_(resourceStrW(id)) {}

ResStrFmt& ResStrFmt::arg(LightweightString<wchar_t> const& value) {
  args_.push_back(value);
  return *this;
}

ResStrFmt& ResStrFmt::arg(int value) { return arg(DataConvert::convert<int, LightweightString<wchar_t>>(value)); }

ResStrFmt& ResStrFmt::arg(double value) { return arg(DataConvert::convert<double, LightweightString<wchar_t>>(value)); }

LightweightString<wchar_t> ResStrFmt::str() const {
  std::wstring_view format = format_.view();
  std::wstring out;
  out.reserve(format.size());
  std::size_t i = 0;
  while (i < format.size()) {
    wchar_t c = format[i++];
    if (c != L'%' || i == format.size()) {
      out += c;
    } else if (format[i] == L'%') {
      out += L'%';
      ++i;
    } else if (isDigit(format[i])) {
      std::size_t start = i;
      std::size_t number = 0;
      while (i < format.size() && isDigit(format[i]) && number <= args_.size())
        number = number * 10 + static_cast<std::size_t>(format[i++] - L'0');
      if (number >= 1 && number <= args_.size())
        out += args_[number - 1].view();
      else
        out.append(L"%").append(format.substr(start, i - start));
    } else {
      out += c;
    }
  }
  return LightweightString<wchar_t>(out);
}
