#include <zowidgets/host/base/DataConvert.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace {

template <class Char> bool isAsciiSpace(Char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// The text without surrounding white space, as plain ASCII; nullopt when any
// other character is left, since no number or word here has one.
template <class Char> std::optional<std::string> trimmedAscii(std::basic_string_view<Char> text) {
  while (!text.empty() && isAsciiSpace(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isAsciiSpace(text.back()))
    text.remove_suffix(1);
  std::string ascii;
  ascii.reserve(text.size());
  for (Char c : text) {
    auto code = static_cast<std::make_unsigned_t<Char>>(c);
    if (code > 0x7F)
      return std::nullopt;
    ascii += static_cast<char>(code);
  }
  return ascii;
}

bool isDigits(std::string_view text) {
  for (char c : text)
    if (c < '0' || c > '9')
      return false;
  return !text.empty();
}

struct IntegerText {
  bool negative;
  unsigned long long magnitude; // saturates
};

std::optional<IntegerText> parseInteger(std::string_view text) {
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (!isDigits(text))
    return std::nullopt;
  unsigned long long magnitude = 0;
  auto result = std::from_chars(text.data(), text.data() + text.size(), magnitude);
  if (result.ec == std::errc::result_out_of_range)
    magnitude = std::numeric_limits<unsigned long long>::max();
  return IntegerText{negative, magnitude};
}

int readInt(std::string_view text) {
  auto parsed = parseInteger(text);
  if (!parsed)
    return 0;
  constexpr auto maxMagnitude = static_cast<unsigned long long>(std::numeric_limits<int>::max());
  if (parsed->magnitude > maxMagnitude)
    return parsed->negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  int magnitude = static_cast<int>(parsed->magnitude);
  return parsed->negative ? -magnitude : magnitude;
}

unsigned readUnsigned(std::string_view text) {
  auto parsed = parseInteger(text);
  if (!parsed || parsed->negative)
    return 0;
  constexpr auto maxMagnitude = static_cast<unsigned long long>(std::numeric_limits<unsigned>::max());
  return parsed->magnitude > maxMagnitude ? std::numeric_limits<unsigned>::max()
                                          : static_cast<unsigned>(parsed->magnitude);
}

// A well-formed decimal that double cannot hold is either huge or tiny; this
// tells which from the position of its first significant digit and its
// exponent, and gives the infinity or the zero of its sign.
double outOfRangeValue(std::string_view number) {
  bool negative = number.front() == '-';
  if (negative)
    number.remove_prefix(1);
  auto exponentStart = number.find_first_of("eE");
  std::string_view mantissa = number.substr(0, exponentStart);
  long long exponent = 0;
  if (exponentStart != std::string_view::npos) {
    // from_chars matched the whole text, so a well-formed exponent follows.
    auto exponentText = parseInteger(number.substr(exponentStart + 1));
    constexpr unsigned long long limit = 1'000'000'000;
    long long magnitude = static_cast<long long>(std::min(exponentText->magnitude, limit));
    exponent = exponentText->negative ? -magnitude : magnitude;
  }
  auto point = std::min(mantissa.find('.'), mantissa.size());
  auto firstSignificant = mantissa.find_first_of("123456789");
  long long order = firstSignificant < point ? static_cast<long long>(point - firstSignificant)
                                             : -static_cast<long long>(firstSignificant - point - 1);
  double magnitude = order + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  return negative ? -magnitude : magnitude;
}

std::optional<double> parseDouble(std::string_view text) {
  // from_chars takes no '+'; accept one, but not before another sign.
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('+') || text.starts_with('-'))
      return std::nullopt;
  }
  if (text.empty())
    return std::nullopt;
  double value = 0;
  char const* end = text.data() + text.size();
  auto result = std::from_chars(text.data(), end, value, std::chars_format::general);
  if (result.ec == std::errc::invalid_argument || result.ptr != end)
    return std::nullopt;
  if (result.ec == std::errc::result_out_of_range)
    return outOfRangeValue(text);
  return value;
}

double readDouble(std::string_view text) { return parseDouble(text).value_or(0.0); }

bool readBool(std::string_view text) {
  auto lower = std::string(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  if (lower == "true")
    return true;
  auto number = parseDouble(text);
  return number && *number != 0 && !std::isnan(*number);
}

template <class Char, class Read> auto readText(LightweightString<Char> const& text, Read read) {
  auto ascii = trimmedAscii(text.view());
  using Result = decltype(read(std::string_view()));
  return ascii ? read(*ascii) : Result();
}

// Widens into a stack buffer so that the string's own block is the only
// allocation.
template <class Char> LightweightString<Char> widen(std::string_view ascii) {
  Char wide[64];
  std::size_t length = ascii.size() < 64 ? ascii.size() : 64;
  std::copy_n(ascii.begin(), length, wide);
  return LightweightString<Char>(wide, length);
}

template <class Char, class T> LightweightString<Char> writeNumber(T value) {
  char buffer[64];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return widen<Char>(std::string_view(buffer, result.ptr));
}

template <class Char> LightweightString<Char> writeDouble(double value) {
  // Every NaN is written alike; to_chars would add a sign.
  if (std::isnan(value))
    return widen<Char>("nan");
  return writeNumber<Char>(value);
}

template <class Char> LightweightString<Char> writeBool(bool value) { return widen<Char>(value ? "true" : "false"); }

int saturatedInt(double whole) {
  if (std::isnan(whole))
    return 0;
  if (whole >= static_cast<double>(std::numeric_limits<int>::max()))
    return std::numeric_limits<int>::max();
  if (whole <= static_cast<double>(std::numeric_limits<int>::min()))
    return std::numeric_limits<int>::min();
  return static_cast<int>(whole);
}

} // namespace

namespace DataConvert {

using WString = LightweightString<wchar_t>;
using CString = LightweightString<char>;

template <> WString convert<bool, WString>(bool const& value) { return writeBool<wchar_t>(value); }
template <> bool convert<WString, bool>(WString const& text) { return readText(text, readBool); }
template <> WString convert<int, WString>(int const& value) { return writeNumber<wchar_t>(value); }
template <> int convert<WString, int>(WString const& text) { return readText(text, readInt); }
template <> WString convert<unsigned, WString>(unsigned const& value) { return writeNumber<wchar_t>(value); }
template <> unsigned convert<WString, unsigned>(WString const& text) { return readText(text, readUnsigned); }
template <> WString convert<double, WString>(double const& value) { return writeDouble<wchar_t>(value); }
template <> double convert<WString, double>(WString const& text) { return readText(text, readDouble); }

template <> CString convert<bool, CString>(bool const& value) { return writeBool<char>(value); }
template <> bool convert<CString, bool>(CString const& text) { return readText(text, readBool); }
template <> CString convert<int, CString>(int const& value) { return writeNumber<char>(value); }
template <> int convert<CString, int>(CString const& text) { return readText(text, readInt); }
template <> CString convert<double, CString>(double const& value) { return writeDouble<char>(value); }
template <> double convert<CString, double>(CString const& text) { return readText(text, readDouble); }

} // namespace DataConvert

int ftisql(double value) { return saturatedInt(std::round(value)); }
int ftisqq(double value) { return saturatedInt(std::trunc(value)); }
