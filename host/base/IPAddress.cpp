#include <zowidgets/host/base/IPAddress.h>

#include <string>
#include <string_view>

namespace {

bool isBlank(wchar_t c) noexcept {
  return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f' || c == L'\v';
}

bool isDigit(wchar_t c) noexcept { return c >= L'0' && c <= L'9'; }

std::wstring_view trimmed(std::wstring_view text) noexcept {
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

// Reads one to `maxDigits` decimal digits from the front of `text`, no more
// than `limit`. The digit count is capped before the value is made, so a
// long run of digits is refused without overflowing.
std::optional<unsigned> readNumber(std::wstring_view& text, std::size_t maxDigits, unsigned limit) noexcept {
  std::size_t length = 0;
  while (length < text.size() && isDigit(text[length]))
    ++length;
  if (length == 0 || length > maxDigits)
    return std::nullopt;
  unsigned value = 0;
  for (std::size_t i = 0; i < length; ++i)
    value = value * 10 + static_cast<unsigned>(text[i] - L'0');
  if (value > limit)
    return std::nullopt;
  text.remove_prefix(length);
  return value;
}

} // namespace

std::optional<IPAddress> IPAddress::fromString(LightweightString<wchar_t> const& text) {
  std::wstring_view rest = trimmed(text.view());
  std::array<std::uint8_t, 4> parts{};
  for (std::size_t index = 0; index < parts.size(); ++index) {
    if (index > 0) {
      if (rest.empty() || rest.front() != L'.')
        return std::nullopt;
      rest.remove_prefix(1);
    }
    std::optional<unsigned> const part = readNumber(rest, 3, 255);
    if (!part)
      return std::nullopt;
    parts[index] = static_cast<std::uint8_t>(*part);
  }
  if (rest.empty())
    return IPAddress(parts);
  if (rest.front() != L':')
    return std::nullopt;
  rest.remove_prefix(1);
  std::optional<unsigned> const port = readNumber(rest, 5, 65535);
  if (!port || !rest.empty())
    return std::nullopt;
  return IPAddress(parts, static_cast<std::uint16_t>(*port));
}

int IPAddress::getPart(int index) const noexcept {
  return index >= 0 && index < static_cast<int>(parts_.size()) ? parts_[static_cast<std::size_t>(index)] : 0;
}

LightweightString<wchar_t> IPAddress::toString() const {
  std::wstring text;
  for (std::size_t index = 0; index < parts_.size(); ++index) {
    if (index > 0)
      text += L'.';
    text += std::to_wstring(parts_[index]);
  }
  if (port_)
    text += L':' + std::to_wstring(*port_);
  return LightweightString<wchar_t>(text);
}
