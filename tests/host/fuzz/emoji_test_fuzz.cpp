// libFuzzer target for the emoji table generator's reading of Unicode's
// emoji test data. The input is a file: each line goes to parseLine and the
// Collector, as the generator feeds them. What comes out must be fit for the
// table: sequences of Unicode scalar values of bounded length, names of
// printable UTF-8, category identifiers that are C++ names, and string
// literals that read back to the very bytes written.

#include "emoji/EmojiTableWriter.h"
#include "emoji/EmojiTestParser.h"

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void require(bool condition) {
  if (!condition)
    std::abort();
}

bool isScalarValue(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

// Decodes the body of a literal as the compiler would, for the escapes that
// escapedForLiteral writes.
std::string unescaped(std::string_view body) {
  std::string bytes;
  for (std::size_t i = 0; i < body.size(); ++i) {
    require(body[i] != '"');
    if (body[i] != '\\') {
      bytes += body[i];
      continue;
    }
    require(body.size() - i > 3);
    int value = 0;
    for (std::size_t k = 1; k <= 3; ++k) {
      require(body[i + k] >= '0' && body[i + k] <= '7');
      value = value * 8 + (body[i + k] - '0');
    }
    bytes += static_cast<char>(value);
    i += 3;
  }
  return bytes;
}

void checkLiteral(std::string_view bytes) {
  std::string const body = EmojiTest::escapedForLiteral(bytes);
  for (char c : body)
    require(c >= 0x20 && c < 0x7F);
  require(unescaped(body) == bytes);
}

void checkName(std::string_view name) {
  require(!name.empty());
  // Printable UTF-8: no byte below 0x20, no DEL, and well formed, so that
  // the library's decoding (as the emoji panel searches names) gives it back
  // unchanged rather than with replacement characters.
  for (char c : name)
    require(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F);
  require(LightweightString<wchar_t>::fromUTF8(name).toUTF8().view() == name);
  checkLiteral(name);
}

void checkGroup(EmojiTest::Group const& group) {
  require(group.identifier.size() > 1 && group.identifier[0] == 'k');
  for (char c : group.identifier)
    require((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'));
  checkName(group.name);
  require(!group.emoji.empty());
  for (EmojiTest::Emoji const& emoji : group.emoji) {
    require(!emoji.codePoints.empty() && emoji.codePoints.size() <= EmojiTest::kMaxSequenceLength);
    for (char32_t c : emoji.codePoints)
      require(isScalarValue(c));
    checkName(emoji.name);
    checkLiteral(EmojiTest::toUTF8(emoji.codePoints));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view text(reinterpret_cast<char const*>(data), size);
  EmojiTest::Collector collector;
  std::size_t lines = 0;
  while (!text.empty()) {
    std::size_t const end = text.find('\n');
    std::string_view const line = text.substr(0, end);
    EmojiTest::ParsedLine const parsed = EmojiTest::parseLine(line);
    if (parsed.kind == EmojiTest::ParsedLine::Kind::kEmoji)
      checkName(parsed.name);
    collector.add(line);
    ++lines;
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  require(collector.malformedLines() <= lines);
  for (EmojiTest::Group const& group : collector.groups())
    checkGroup(group);
  return 0;
}
