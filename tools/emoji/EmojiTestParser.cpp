#include "EmojiTestParser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <utility>

namespace EmojiTest {

namespace {

constexpr std::string_view kGroupHeading = "# group:";
constexpr std::string_view kFullyQualified = "fully-qualified";
constexpr std::array<std::string_view, 3> kOtherStatuses = {"component", "minimally-qualified", "unqualified"};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool isAsciiLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }
bool isScalarValue(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

std::string_view trim(std::string_view text) {
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

// The text before the first blank, and the rest after the blanks that follow.
std::pair<std::string_view, std::string_view> firstWord(std::string_view text) {
  std::size_t const end = std::min(text.find(' '), text.find('\t'));
  if (end == std::string_view::npos)
    return {text, {}};
  return {text.substr(0, end), trim(text.substr(end))};
}

ParsedLine malformed() {
  ParsedLine line;
  line.kind = ParsedLine::Kind::kMalformed;
  return line;
}

// Well-formed UTF-8 without control characters: names go into generated
// source and are shown to users as they are.
bool isPrintableUTF8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    auto const lead = static_cast<unsigned char>(text[i]);
    int length = 0;
    char32_t c = 0;
    if (lead < 0x80) {
      length = 1;
      c = lead;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      length = 2;
      c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
      length = 3;
      c = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      length = 4;
      c = lead & 0x07;
    } else {
      return false;
    }
    if (text.size() - i < std::size_t(length))
      return false;
    for (int k = 1; k < length; ++k) {
      auto const next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80)
        return false;
      c = (c << 6) | (next & 0x3F);
    }
    char32_t const shortest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < shortest[length] || !isScalarValue(c) || c < 0x20 || (c >= 0x7F && c <= 0x9F))
      return false;
    i += std::size_t(length);
  }
  return true;
}

// "Smileys & Emotion" gives "kSmileysAndEmotion": words capitalised and
// joined, '&' read as "And". Empty when the heading has no letter or digit.
std::string identifierFor(std::string_view heading) {
  if (std::none_of(heading.begin(), heading.end(), isAsciiLetterOrDigit))
    return {};
  std::string identifier = "k";
  bool startOfWord = true;
  for (char c : heading) {
    if (c == '&') {
      identifier += "And";
      startOfWord = true;
    } else if (isAsciiLetterOrDigit(c)) {
      identifier += startOfWord && c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
      startOfWord = false;
    } else {
      startOfWord = true;
    }
  }
  return identifier;
}

ParsedLine parseComment(std::string_view line) {
  if (!line.starts_with(kGroupHeading))
    return {};
  std::string_view const heading = trim(line.substr(kGroupHeading.size()));
  ParsedLine group;
  group.identifier = identifierFor(heading);
  if (group.identifier.empty() || !isPrintableUTF8(heading))
    return malformed();
  group.kind = ParsedLine::Kind::kGroup;
  group.name = heading;
  return group;
}

// Code points in hexadecimal separated by blanks; none when any is not a
// Unicode scalar value or there are none or too many.
std::optional<std::vector<char32_t>> parseSequence(std::string_view text) {
  std::vector<char32_t> codePoints;
  for (text = trim(text); !text.empty();) {
    auto const [word, rest] = firstWord(text);
    std::uint32_t value = 0;
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
    if (error != std::errc() || end != word.data() + word.size() || word.size() > 6 || !isScalarValue(value) ||
        codePoints.size() == kMaxSequenceLength)
      return std::nullopt;
    codePoints.push_back(value);
    text = rest;
  }
  if (codePoints.empty())
    return std::nullopt;
  return codePoints;
}

// "E1.0", the version that brought the emoji.
bool isVersion(std::string_view word) {
  if (word.size() < 2 || word.front() != 'E')
    return false;
  word.remove_prefix(1);
  std::size_t const dot = word.find('.');
  std::string_view const major = word.substr(0, dot);
  std::string_view const minor = dot == std::string_view::npos ? std::string_view("0") : word.substr(dot + 1);
  auto allDigits = [](std::string_view digits) {
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
  };
  return allDigits(major) && allDigits(minor);
}

// The comment of an emoji line: the emoji itself, the version that brought
// it, then its name. The first two are skipped where present.
std::string_view nameIn(std::string_view comment, std::vector<char32_t> const& codePoints) {
  comment = trim(comment);
  if (auto const [word, rest] = firstWord(comment); word == toUTF8(codePoints))
    comment = rest;
  if (auto const [word, rest] = firstWord(comment); isVersion(word))
    comment = rest;
  return comment;
}

ParsedLine parseEmoji(std::string_view line) {
  std::size_t const hash = line.find('#');
  std::string_view const data = line.substr(0, hash);
  std::size_t const semicolon = data.find(';');
  if (hash == std::string_view::npos || semicolon == std::string_view::npos)
    return malformed();
  std::optional<std::vector<char32_t>> codePoints = parseSequence(data.substr(0, semicolon));
  std::string_view const status = trim(data.substr(semicolon + 1));
  if (!codePoints)
    return malformed();
  if (status != kFullyQualified) {
    bool const known = std::find(kOtherStatuses.begin(), kOtherStatuses.end(), status) != kOtherStatuses.end();
    return known ? ParsedLine() : malformed();
  }
  std::string_view const name = nameIn(line.substr(hash + 1), *codePoints);
  if (name.empty() || !isPrintableUTF8(name))
    return malformed();
  ParsedLine emoji;
  emoji.kind = ParsedLine::Kind::kEmoji;
  emoji.name = name;
  emoji.codePoints = std::move(*codePoints);
  return emoji;
}

} // namespace

std::string toUTF8(std::vector<char32_t> const& codePoints) {
  std::string text;
  for (char32_t c : codePoints) {
    if (c < 0x80) {
      text += char(c);
    } else if (c < 0x800) {
      text += char(0xC0 | (c >> 6));
      text += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      text += char(0xE0 | (c >> 12));
      text += char(0x80 | ((c >> 6) & 0x3F));
      text += char(0x80 | (c & 0x3F));
    } else {
      text += char(0xF0 | (c >> 18));
      text += char(0x80 | ((c >> 12) & 0x3F));
      text += char(0x80 | ((c >> 6) & 0x3F));
      text += char(0x80 | (c & 0x3F));
    }
  }
  return text;
}

ParsedLine parseLine(std::string_view line) {
  line = trim(line);
  if (line.empty())
    return {};
  if (line.front() == '#')
    return parseComment(line);
  return parseEmoji(line);
}

void Collector::add(std::string_view line) {
  ParsedLine parsed = parseLine(line);
  switch (parsed.kind) {
  case ParsedLine::Kind::kIgnored:
    return;
  case ParsedLine::Kind::kMalformed:
    ++malformed_;
    return;
  case ParsedLine::Kind::kGroup: {
    auto const same = [&](Group const& group) { return group.identifier == parsed.identifier; };
    auto const found = std::find_if(groups_.begin(), groups_.end(), same);
    current_ = std::size_t(found - groups_.begin());
    if (found == groups_.end())
      groups_.push_back({std::move(parsed.name), std::move(parsed.identifier), {}});
    return;
  }
  case ParsedLine::Kind::kEmoji:
    if (!current_) {
      ++malformed_;
      return;
    }
    groups_[*current_].emoji.push_back({std::move(parsed.codePoints), std::move(parsed.name)});
    return;
  }
}

std::vector<Group> Collector::groups() const {
  std::vector<Group> withEmoji;
  std::copy_if(groups_.begin(), groups_.end(), std::back_inserter(withEmoji),
               [](Group const& group) { return !group.emoji.empty(); });
  return withEmoji;
}

} // namespace EmojiTest
