#include <zowidgets/host/base/JSONBuilder.h>

#include <zowidgets/host/base/AtomicFile.h>

#include <charconv>
#include <cmath>

namespace JSON {

namespace {

void appendEscaped(std::string& out, char32_t c) {
  static constexpr char kHex[] = "0123456789abcdef";
  switch (c) {
  case '"':
    out += "\\\"";
    return;
  case '\\':
    out += "\\\\";
    return;
  case '\b':
    out += "\\b";
    return;
  case '\f':
    out += "\\f";
    return;
  case '\n':
    out += "\\n";
    return;
  case '\r':
    out += "\\r";
    return;
  case '\t':
    out += "\\t";
    return;
  default:
    break;
  }
  if (c < 0x20) {
    out += "\\u00";
    out += kHex[c >> 4];
    out += kHex[c & 0xF];
  } else if (c < 0x80) {
    out += static_cast<char>(c);
  } else {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
      c = 0xFFFD;
    if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
    } else {
      if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
      } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      }
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    }
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

void appendQuoted(std::string& out, std::wstring_view text) {
  out += '"';
  for (wchar_t c : text)
    appendEscaped(out, static_cast<char32_t>(c));
  out += '"';
}

// Runs of plain ASCII go across whole; the rest is decoded so that malformed
// UTF-8 can be replaced rather than passed on.
void appendQuoted(std::string& out, std::string_view utf8) {
  out += '"';
  std::size_t plainFrom = 0;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\')
      continue;
    out.append(utf8.substr(plainFrom, i - plainFrom));
    if (byte < 0x80) {
      appendEscaped(out, byte);
      plainFrom = i + 1;
      continue;
    }
    std::size_t end = i;
    while (end < utf8.size() && static_cast<unsigned char>(utf8[end]) >= 0x80)
      ++end;
    LightweightString<wchar_t> decoded = LightweightString<wchar_t>::fromUTF8(utf8.substr(i, end - i));
    for (wchar_t c : decoded.view())
      appendEscaped(out, static_cast<char32_t>(c));
    plainFrom = end;
    i = end - 1;
  }
  out.append(utf8.substr(plainFrom));
  out += '"';
}

template <class Number> void appendNumber(std::string& out, Number value) {
  if (!std::isfinite(value)) {
    out += "null";
    return;
  }
  char buffer[64];
  auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string_view written(buffer, static_cast<std::size_t>(end - buffer));
  out += written;
  // A bare "-0" reads back as the integer 0; keep the sign of zero.
  if (written == "-0")
    out += ".0";
}

} // namespace

Builder::Builder(eStyle style) : style_(style) {}

void Builder::newLine(std::string& out, std::size_t depth) const {
  if (style_ != kPretty)
    return;
  out += '\n';
  out.append(depth * 2, ' ');
}

bool Builder::beginValue(char const* key) {
  if (open_.empty()) {
    if (rootWritten_)
      return false;
    rootWritten_ = true;
    return true;
  }
  Level& level = open_.back();
  if (!level.isEmpty)
    text_ += ',';
  level.isEmpty = false;
  newLine(text_, open_.size());
  if (!level.isArray) {
    appendQuoted(text_, std::string_view(key ? key : ""));
    text_ += style_ == kPretty ? ": " : ":";
  }
  return true;
}

void Builder::start(char const* key, bool isArray) {
  if (!beginValue(key))
    return;
  text_ += isArray ? '[' : '{';
  open_.push_back({isArray, true});
}

void Builder::startChild(char const* key) { start(key, false); }

void Builder::startArray(char const* key) { start(key, true); }

void Builder::end() {
  if (open_.empty())
    return;
  Level level = open_.back();
  open_.pop_back();
  if (!level.isEmpty)
    newLine(text_, open_.size());
  text_ += level.isArray ? ']' : '}';
}

void Builder::add(char const* key, bool value) {
  if (beginValue(key))
    text_ += value ? "true" : "false";
}

void Builder::add(char const* key, double value) {
  if (beginValue(key))
    appendNumber(text_, value);
}

void Builder::add(char const* key, float value) {
  if (beginValue(key))
    appendNumber(text_, value);
}

void Builder::addInteger(char const* key, long long value, bool isUnsigned) {
  if (!beginValue(key))
    return;
  char buffer[32];
  auto [end, error] = isUnsigned ? std::to_chars(buffer, buffer + sizeof buffer, static_cast<unsigned long long>(value))
                                 : std::to_chars(buffer, buffer + sizeof buffer, value);
  text_.append(buffer, end);
}

void Builder::add(char const* key, char const* utf8) {
  addUTF8(key, utf8 ? std::string_view(utf8) : std::string_view());
}

void Builder::add(char const* key, wchar_t const* text) {
  if (beginValue(key))
    appendQuoted(text_, text ? std::wstring_view(text) : std::wstring_view());
}

void Builder::add(char const* key, LightweightString<char> const& utf8) { addUTF8(key, utf8.view()); }

void Builder::add(char const* key, LightweightString<wchar_t> const& text) {
  if (beginValue(key))
    appendQuoted(text_, text.view());
}

void Builder::addUTF8(char const* key, std::string_view utf8) {
  if (beginValue(key))
    appendQuoted(text_, utf8);
}

void Builder::addNull(char const* key) {
  if (beginValue(key))
    text_ += "null";
}

LightweightString<char> Builder::getText() const {
  std::string text = text_;
  for (std::size_t depth = open_.size(); depth-- > 0;) {
    if (!open_[depth].isEmpty)
      newLine(text, depth);
    text += open_[depth].isArray ? ']' : '}';
  }
  return LightweightString<char>(text);
}

bool Builder::saveToFile(LightweightString<wchar_t> const& path) const {
  LightweightString<char> const text = getText() + "\n";
  return Zo::writeFileAtomically(path.toUTF8().str(), text.view());
}

} // namespace JSON
