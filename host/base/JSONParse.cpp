#include <zowidgets/host/base/JSON.h>

// Lets the reader skip white space and copy plain text 16 bytes at a time;
// every x86-64 processor has SSE2.
#if defined(__SSE2__)
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace JSON {

namespace {

// The reader's own text: UTF-8, then NULs for its 16-byte loads to run into.
// Null for a value that is not a Unicode scalar value (a surrogate, a
// negative, one beyond U+10FFFF).
struct UTF8Text {
  std::unique_ptr<char[]> bytes;
  std::size_t length = 0;
};

UTF8Text encodeUTF8(std::wstring_view text) {
  constexpr std::size_t kPadding = 16;
  auto bytes = std::make_unique_for_overwrite<char[]>(text.size() * 4 + kPadding);
  char* out = bytes.get();
  for (wchar_t c : text) {
    auto code = static_cast<char32_t>(c);
    if (code < 0x80) {
      *out++ = static_cast<char>(code);
    } else if (code < 0x800) {
      *out++ = static_cast<char>(0xC0 | (code >> 6));
      *out++ = static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
      if (code >= 0xD800 && code <= 0xDFFF)
        return {};
      *out++ = static_cast<char>(0xE0 | (code >> 12));
      *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      *out++ = static_cast<char>(0x80 | (code & 0x3F));
    } else if (code <= 0x10FFFF) {
      *out++ = static_cast<char>(0xF0 | (code >> 18));
      *out++ = static_cast<char>(0x80 | ((code >> 12) & 0x3F));
      *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      *out++ = static_cast<char>(0x80 | (code & 0x3F));
    } else {
      return {};
    }
  }
  std::fill_n(out, kPadding, '\0');
  auto length = static_cast<std::size_t>(out - bytes.get());
  return {std::move(bytes), length};
}

// The reader refuses an escaped high surrogate without its low half, but
// encodes a lone low one (\udc00) as if it were a character. Refusing that too
// keeps every text valid UTF-8. Such an encoding is the only UTF-8 that starts
// 0xED 0xA0 to 0xED 0xBF.
bool holdsSurrogate(std::string_view utf8) {
  // A plain loop: texts are short, and a call to memchr costs more here.
  for (std::size_t i = 0; i + 1 < utf8.size(); ++i)
    if (utf8[i] == '\xED' && static_cast<unsigned char>(utf8[i + 1]) >= 0xA0)
      return true;
  return false;
}

// For a number that a double cannot hold: whether it is too small rather than
// too large, from the power of ten of its first significant digit. The reader
// has checked the grammar: -?digits(.digits)?([eE][+-]?digits)?
bool isTooSmall(std::string_view number) {
  std::size_t exponentAt = number.find_first_of("eE");
  std::string_view mantissa = number.substr(0, exponentAt);
  if (mantissa.starts_with('-'))
    mantissa.remove_prefix(1);
  std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  std::size_t first = mantissa.find_first_not_of("0.");
  if (first == std::string_view::npos)
    return true;
  auto power = first < point ? static_cast<long long>(point - first) - 1 : -static_cast<long long>(first - point);
  if (exponentAt != std::string_view::npos) {
    std::string_view digits = number.substr(exponentAt + 1);
    bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+'))
      digits.remove_prefix(1);
    long long exponent = 0;
    for (char digit : digits)
      exponent = std::min(exponent * 10 + (digit - '0'), 1'000'000'000'000LL);
    power += negative ? -exponent : exponent;
  }
  return power < 0;
}

// Passes the reader's events on; a false return stops the reader.
class AssemblingHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, AssemblingHandler> {
public:
  explicit AssemblingHandler(ElementAssembler& assembler) : assembler_(assembler) {}

  bool Null() {
    assembler_.addNull();
    return true;
  }
  bool Bool(bool value) {
    assembler_.addBool(value);
    return true;
  }
  bool RawNumber(char const* text, rapidjson::SizeType length, bool) {
    double value;
    auto [end, error] = std::from_chars(text, text + length, value);
    if (error == std::errc::result_out_of_range && isTooSmall({text, length}))
      value = text[0] == '-' ? -0.0 : 0.0;
    else if (error != std::errc() || end != text + length)
      return refuse("A number is too large for a double.");
    assembler_.addNumber(value);
    return true;
  }
  bool String(char const* text, rapidjson::SizeType length, bool) {
    if (holdsSurrogate({text, length}))
      return refuse("A string holds a lone surrogate.");
    assembler_.addStringInPlace({text, length});
    return true;
  }
  bool Key(char const* text, rapidjson::SizeType length, bool) {
    if (holdsSurrogate({text, length}))
      return refuse("A key holds a lone surrogate.");
    assembler_.keyInPlace({text, length});
    return true;
  }
  bool StartObject() { return assembler_.startObject() || refuse(kTooDeep); }
  bool EndObject(rapidjson::SizeType) {
    assembler_.end();
    return true;
  }
  bool StartArray() { return assembler_.startArray() || refuse(kTooDeep); }
  bool EndArray(rapidjson::SizeType) {
    assembler_.end();
    return true;
  }

  // Why the handler stopped the reader; null if it did not.
  char const* refusal() const noexcept { return refusal_; }

private:
  static constexpr char const* kTooDeep = "Objects and arrays are nested too deeply.";
  bool refuse(char const* reason) {
    refusal_ = reason;
    return false;
  }

  ElementAssembler& assembler_;
  char const* refusal_ = nullptr;
};

// The reader recurses once per level of nesting, which the assembler stops
// at ElementAssembler::kMaxDepth, so the call stack stays small (a test runs
// it on a 256 KiB thread); its iterative mode costs a fifth more time. It
// reads in place, in a buffer that the elements then keep. Numbers come as
// their text, for std::from_chars: the reader's own conversion gets zeros
// with many digits wrong (0.000...0 with 32 zeros gives 1.5e-241) and rounds
// others inexactly.
constexpr unsigned kReadFlags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;

// Where in the text a UTF-8 byte offset falls, counting from 1.
void locate(std::wstring_view text, std::size_t byteOffset, ParseError& error) {
  std::size_t bytes = 0;
  error.line = 1;
  error.column = 1;
  for (wchar_t c : text) {
    if (bytes >= byteOffset)
      break;
    auto code = static_cast<char32_t>(c);
    bytes += code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    if (c == L'\n') {
      ++error.line;
      error.column = 1;
    } else {
      ++error.column;
    }
  }
}

Zo::Ptr<Element> parseText(std::wstring_view text, ParseError* error) {
  UTF8Text utf8 = encodeUTF8(text);
  if (!utf8.bytes) {
    if (error)
      *error = {0, 0, "The text holds a character that is not a Unicode scalar value."};
    return {};
  }
  std::size_t const length = utf8.length;
  ElementAssembler assembler;
  AssemblingHandler handler(assembler);
  rapidjson::Reader reader;
  rapidjson::InsituStringStream stream(utf8.bytes.get());
  assembler.adopt(std::move(utf8.bytes));
  rapidjson::ParseResult const result = reader.Parse<kReadFlags>(stream, handler);
  if (result.IsError()) {
    if (error) {
      locate(text, result.Offset(), *error);
      error->message = handler.refusal() ? handler.refusal() : rapidjson::GetParseError_En(result.Code());
    }
    return {};
  }
  // The reader stops at a NUL; one before the end is text after the value.
  if (stream.Tell() != length) {
    if (error) {
      locate(text, stream.Tell(), *error);
      error->message = "The text holds a NUL character.";
    }
    return {};
  }
  return assembler.result();
}

bool readBytes(LightweightString<wchar_t> const& path, std::string& bytes) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.toUTF8().c_str(), "rb"), &std::fclose);
  if (!file)
    return false;
  char buffer[16384];
  std::size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, file.get())) > 0)
    bytes.append(buffer, got);
  return !std::ferror(file.get());
}

} // namespace

Zo::Ptr<Element> parse(LightweightString<wchar_t> const& text) noexcept {
  try {
    return parseText(text.view(), nullptr);
  } catch (...) { // out of memory: as unreadable as bad text
    return {};
  }
}

std::string ParseError::describe() const {
  if (line <= 0)
    return message;
  return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + message;
}

std::size_t ParseError::offsetIn(std::wstring_view text) const {
  if (line <= 0)
    return 0;
  std::size_t start = 0;
  for (int at = 1; at < line; ++at) {
    std::size_t const lineBreak = text.find(L'\n', start);
    if (lineBreak == std::wstring_view::npos)
      return text.size();
    start = lineBreak + 1;
  }
  return std::min(start + static_cast<std::size_t>(std::max(column - 1, 0)), text.size());
}

Zo::Ptr<Element> parse(LightweightString<wchar_t> const& text, ParseError& error) noexcept {
  error = {};
  try {
    return parseText(text.view(), &error);
  } catch (...) {
    error = {0, 0, "Out of memory."};
    return {};
  }
}

Zo::Ptr<Element> parseFile(LightweightString<wchar_t> const& path) noexcept {
  try {
    std::string bytes;
    if (!readBytes(path, bytes))
      return {};
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::string_view utf8(bytes);
    if (utf8.starts_with(kByteOrderMark))
      utf8.remove_prefix(kByteOrderMark.size());
    return parse(LightweightString<wchar_t>::fromUTF8(utf8));
  } catch (...) {
    return {};
  }
}

} // namespace JSON
