#include <zowidgets/host/ResourceStrings.h>

#include <zowidgets/host/DataConvert.h>

#include <mutex>
#include <unordered_map>

namespace {

struct StringTable {
  std::mutex mutex;
  std::unordered_map<ResId, LightweightString<wchar_t>> texts;
};

StringTable& table() {
  static StringTable instance;
  return instance;
}

constexpr wchar_t kEllipsis = L'\u2026';

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

} // namespace

LightweightString<wchar_t> resourceStrW(ResId id) {
  auto& strings = table();
  std::lock_guard lock(strings.mutex);
  auto found = strings.texts.find(id);
  return found == strings.texts.end() ? LightweightString<wchar_t>() : found->second;
}

void setResourceString(ResId id, LightweightString<wchar_t> const& text) {
  auto& strings = table();
  std::lock_guard lock(strings.mutex);
  strings.texts[id] = text;
}

void clearResourceStrings() {
  auto& strings = table();
  std::lock_guard lock(strings.mutex);
  strings.texts.clear();
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
