#include <zowidgets/host/base/configb.h>

#include <zowidgets/host/base/DataConvert.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

namespace {

using CString = LightweightString<char>;
using WString = LightweightString<wchar_t>;

bool isScalarValue(std::uint32_t c) { return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF); }

bool mustEscape(std::uint32_t c) { return c < 0x20 || c == 0x7F || c == '"' || c == '\\'; }

void appendEscape(std::string& out, std::uint32_t c) {
  switch (c) {
  case '"':
    out += "\\\"";
    return;
  case '\\':
    out += "\\\\";
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
    char hex[8];
    auto end = std::to_chars(hex, hex + sizeof hex, c, 16).ptr;
    out.append("\\x{").append(hex, end).append("}");
  }
}

// Keys are bytes: anything but quotes, backslashes and control characters
// is written as it is.
void appendQuotedKey(std::string& out, CString const& key) {
  out += '"';
  for (char c : key.view()) {
    auto byte = static_cast<unsigned char>(c);
    if (mustEscape(byte))
      appendEscape(out, byte);
    else
      out += c;
  }
  out += '"';
}

// Values are characters, written in UTF-8; code points that UTF-8 cannot
// carry are escaped so that they survive.
void appendQuotedValue(std::string& out, WString const& value) {
  out += '"';
  for (wchar_t c : value.view()) {
    auto code = static_cast<std::uint32_t>(c);
    if (mustEscape(code) || !isScalarValue(code))
      appendEscape(out, code);
    else
      out += WString(&c, 1).toUTF8().view();
  }
  out += '"';
}

struct KeyBuilder {
  std::string bytes;
  void raw(char c) { bytes += c; }
  bool escaped(std::uint32_t code) {
    if (code > 0xFF)
      return false;
    bytes += static_cast<char>(code);
    return true;
  }
  CString result() const { return CString(bytes); }
};

struct ValueBuilder {
  std::wstring text;
  std::string pendingUTF8;
  void raw(char c) { pendingUTF8 += c; }
  bool escaped(std::uint32_t code) {
    flush();
    text += static_cast<wchar_t>(code);
    return true;
  }
  void flush() {
    text += WString::fromUTF8(pendingUTF8).view();
    pendingUTF8.clear();
  }
  WString result() {
    flush();
    return WString(text);
  }
};

class TextReader {
public:
  explicit TextReader(std::string_view text) : text_(text) {}

  bool atEnd() {
    while (pos_ < text_.size() &&
           (text_[pos_] == ' ' || text_[pos_] == '\t' || text_[pos_] == '\n' || text_[pos_] == '\r'))
      ++pos_;
    return pos_ == text_.size();
  }
  // Skips white space and takes `c` if it comes next.
  bool take(char c) {
    if (atEnd() || text_[pos_] != c)
      return false;
    ++pos_;
    return true;
  }
  template <class Builder> bool readQuoted(Builder& builder) {
    if (!take('"'))
      return false;
    while (pos_ < text_.size()) {
      char c = text_[pos_++];
      if (c == '"')
        return true;
      if (mustEscape(static_cast<unsigned char>(c)) && c != '\\')
        return false;
      if (c != '\\') {
        builder.raw(c);
        continue;
      }
      auto code = readEscape();
      if (!code || !builder.escaped(*code))
        return false;
    }
    return false;
  }

private:
  // After a backslash: one of \" \\ \n \r \t, or \x{...} with one to eight
  // hex digits.
  std::optional<std::uint32_t> readEscape() {
    if (pos_ == text_.size())
      return std::nullopt;
    switch (text_[pos_++]) {
    case '"':
      return '"';
    case '\\':
      return '\\';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case 'x':
      break;
    default:
      return std::nullopt;
    }
    auto close = text_.find('}', pos_);
    if (!text_.substr(pos_).starts_with('{') || close == std::string_view::npos)
      return std::nullopt;
    std::string_view digits = text_.substr(pos_ + 1, close - pos_ - 1);
    pos_ = close + 1;
    if (digits.empty() || digits.size() > 8)
      return std::nullopt;
    std::uint32_t code = 0;
    auto result = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size())
      return std::nullopt;
    return code;
  }

  std::string_view text_;
  std::size_t pos_ = 0;
};

} // namespace

configb& configb::operator=(configb const& other) {
  configb copy(other);
  return *this = std::move(copy);
}

void configb::setText(CString const& key, WString const& value) {
  auto found = std::find_if(entries_.begin(), entries_.end(), [&](Entry const& e) { return e.key == key; });
  if (found != entries_.end())
    found->value = value;
  else
    entries_.push_back({key, value});
}

void configb::set(CString const& key, bool value) { setText(key, DataConvert::convert<bool, WString>(value)); }
void configb::set(CString const& key, int value) { setText(key, DataConvert::convert<int, WString>(value)); }
void configb::set(CString const& key, unsigned value) { setText(key, DataConvert::convert<unsigned, WString>(value)); }
void configb::set(CString const& key, double value) { setText(key, DataConvert::convert<double, WString>(value)); }
void configb::set(CString const& key, WString const& value) { setText(key, value); }
void configb::set(CString const& key, wchar_t const* value) { setText(key, value ? WString(value) : WString()); }
void configb::set(CString const& key, char const* utf8) { setText(key, WString::fromUTF8(utf8 ? utf8 : "")); }

configb::Entry const* configb::findEntry(CString const& key) const {
  auto found = std::find_if(entries_.begin(), entries_.end(), [&](Entry const& e) { return e.key == key; });
  return found == entries_.end() ? nullptr : &*found;
}

bool configb::getBool(CString const& key, bool def) const {
  auto entry = findEntry(key);
  return entry ? DataConvert::convert<WString, bool>(entry->value) : def;
}

int configb::getInt(CString const& key, int def) const {
  auto entry = findEntry(key);
  return entry ? DataConvert::convert<WString, int>(entry->value) : def;
}

unsigned configb::getUnsigned(CString const& key, unsigned def) const {
  auto entry = findEntry(key);
  return entry ? DataConvert::convert<WString, unsigned>(entry->value) : def;
}

double configb::getDouble(CString const& key, double def) const {
  auto entry = findEntry(key);
  return entry ? DataConvert::convert<WString, double>(entry->value) : def;
}

WString configb::getString(CString const& key, WString const& def) const {
  auto entry = findEntry(key);
  return entry ? entry->value : def;
}

bool configb::in(CString const& key) const { return findEntry(key) != nullptr; }

bool configb::remove(CString const& key) {
  return std::erase_if(entries_, [&](Entry const& e) { return e.key == key; }) != 0;
}

std::vector<CString> configb::keys() const {
  std::vector<CString> result;
  result.reserve(entries_.size());
  for (auto const& entry : entries_)
    result.push_back(entry.key);
  return result;
}

configb& configb::child(CString const& key) {
  if (auto existing = findChild(key))
    return *existing;
  return children_.emplace_back(key, configb()).second;
}

configb const* configb::findChild(CString const& key) const {
  auto found = std::find_if(children_.begin(), children_.end(), [&](Child const& c) { return c.first == key; });
  return found == children_.end() ? nullptr : &found->second;
}

configb* configb::findChild(CString const& key) {
  return const_cast<configb*>(static_cast<configb const*>(this)->findChild(key));
}

bool configb::removeChild(CString const& key) {
  return std::erase_if(children_, [&](Child const& c) { return c.first == key; }) != 0;
}

void configb::clear() {
  entries_.clear();
  children_.clear();
}

void configb::appendText(std::string& out, int depth) const {
  std::string indent(static_cast<std::size_t>(depth) * 2, ' ');
  for (auto const& entry : entries_) {
    out += indent;
    appendQuotedKey(out, entry.key);
    out += " = ";
    appendQuotedValue(out, entry.value);
    out += '\n';
  }
  for (auto const& [key, tree] : children_) {
    out += indent;
    appendQuotedKey(out, key);
    out += " {\n";
    tree.appendText(out, depth + 1);
    out += indent;
    out += "}\n";
  }
}

CString configb::toText() const {
  std::string out;
  appendText(out, 0);
  return CString(out);
}

std::optional<configb> configb::fromText(std::string_view text) {
  configb root;
  std::vector<configb*> open{&root};
  TextReader reader(text);
  while (!reader.atEnd()) {
    if (reader.take('}')) {
      if (open.size() == 1)
        return std::nullopt;
      open.pop_back();
      continue;
    }
    KeyBuilder key;
    if (!reader.readQuoted(key))
      return std::nullopt;
    configb& current = *open.back();
    if (reader.take('=')) {
      ValueBuilder value;
      if (!reader.readQuoted(value) || current.in(key.result()))
        return std::nullopt;
      current.setText(key.result(), value.result());
    } else if (reader.take('{')) {
      if (current.findChild(key.result()) || open.size() > kMaxTextDepth)
        return std::nullopt;
      open.push_back(&current.child(key.result()));
    } else {
      return std::nullopt;
    }
  }
  if (open.size() != 1)
    return std::nullopt;
  return root;
}
