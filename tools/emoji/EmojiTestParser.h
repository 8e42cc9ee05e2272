#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Reads Unicode's emoji test data (emoji-test.txt), one line at a time:
//
//   # group: Smileys & Emotion
//   1F600 ; fully-qualified # 😀 E1.0 grinning face
//
// Only group headings and fully-qualified emoji matter to the table built
// from it; the other statuses, comments and blank lines are ignored. A line
// that fits neither shape is malformed and dropped, so a damaged file loses
// those lines and nothing else.
namespace EmojiTest {

struct ParsedLine {
  enum class Kind { kIgnored, kMalformed, kGroup, kEmoji };
  Kind kind = Kind::kIgnored;
  // A group's heading or an emoji's name, in UTF-8.
  std::string name;
  // For a group: the enumerator of Emoji::eCategory that stands for it,
  // "kSmileysAndEmotion" for "Smileys & Emotion".
  std::string identifier;
  // For an emoji: its sequence, at least one Unicode scalar value.
  std::vector<char32_t> codePoints;
};

// The longest sequence accepted; Unicode's longest has 10 code points.
inline constexpr std::size_t kMaxSequenceLength = 32;

ParsedLine parseLine(std::string_view line);

// The UTF-8 bytes of a sequence of Unicode scalar values.
std::string toUTF8(std::vector<char32_t> const& codePoints);

struct Emoji {
  std::vector<char32_t> codePoints;
  std::string name;
};

struct Group {
  std::string name;
  std::string identifier;
  std::vector<Emoji> emoji;
};

// Gathers a whole file: the groups in the order they first appear, each
// with its fully-qualified emoji in file order. A heading seen again goes on
// filling its group; an emoji before any heading is dropped as malformed.
// Groups without emoji (such as "Component") are left out.
class Collector {
public:
  void add(std::string_view line);

  std::vector<Group> groups() const;
  std::size_t malformedLines() const noexcept { return malformed_; }

private:
  std::vector<Group> groups_;
  std::optional<std::size_t> current_; // the group of the latest heading
  std::size_t malformed_ = 0;
};

} // namespace EmojiTest
