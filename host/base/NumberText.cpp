#include <zowidgets/host/base/NumberText.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cwctype>
#include <string>

LightweightString<wchar_t> Zo::WStringFromFloat(double value, int decimals, int minimumWidth) {
  char digits[512];
  int const precision = std::clamp(decimals, 0, 17);
  auto const written = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, precision);
  std::wstring text(written.ptr - digits < minimumWidth ? minimumWidth - (written.ptr - digits) : 0, L' ');
  text.append(digits, written.ptr);
  return LightweightString<wchar_t>(text);
}

LightweightString<wchar_t> Zo::WStringFromFloatTrimmed(double value, int decimals) {
  std::wstring text(WStringFromFloat(value, decimals, 0).view());
  if (text.find(L'.') != std::wstring::npos) {
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.')
      text.pop_back();
  }
  if (text == L"-0")
    text = L"0";
  return LightweightString<wchar_t>(text);
}

LightweightString<wchar_t> Zo::WStringFromInteger(long long value) {
  char digits[24];
  auto const written = std::to_chars(digits, digits + sizeof digits, value);
  return LightweightString<wchar_t>(std::wstring(digits, written.ptr));
}

double Zo::FloatFromWString(LightweightString<wchar_t> const& text, double fallback) {
  std::wstring_view view = text.view();
  std::size_t start = 0;
  while (start < view.size() && std::iswspace(static_cast<wint_t>(view[start])))
    ++start;
  // Only the characters a number can hold are narrowed; the rest ends it.
  std::string narrow;
  bool const negative = start < view.size() && view[start] == L'-';
  if (negative || (start < view.size() && view[start] == L'+'))
    ++start;
  for (std::size_t i = start; i < view.size(); ++i) {
    wchar_t const c = view[i];
    bool const numeric = (c >= L'0' && c <= L'9') || c == L'.' || c == L'e' || c == L'E' ||
                         ((c == L'-' || c == L'+') && i > start && (view[i - 1] == L'e' || view[i - 1] == L'E'));
    if (!numeric)
      break;
    narrow.push_back(static_cast<char>(c));
  }
  double value = 0.0;
  auto const parsed = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
  if (parsed.ec != std::errc() || !std::isfinite(value))
    return fallback;
  return negative ? -value : value;
}

int Zo::IntFromWString(LightweightString<wchar_t> const& text, int fallback) {
  std::wstring_view view = text.view();
  std::size_t start = 0;
  while (start < view.size() && std::iswspace(static_cast<wint_t>(view[start])))
    ++start;
  std::string narrow;
  if (start < view.size() && (view[start] == L'-' || view[start] == L'+'))
    narrow.push_back(view[start++] == L'-' ? '-' : '+');
  for (std::size_t i = start; i < view.size() && view[i] >= L'0' && view[i] <= L'9'; ++i)
    narrow.push_back(static_cast<char>(view[i]));
  // from_chars takes a minus sign but no plus.
  std::size_t const skip = !narrow.empty() && narrow[0] == '+' ? 1 : 0;
  int value = 0;
  auto const parsed = std::from_chars(narrow.data() + skip, narrow.data() + narrow.size(), value);
  return parsed.ec == std::errc() && parsed.ptr == narrow.data() + narrow.size() ? value : fallback;
}
