#include "EmojiTableWriter.h"

#include <cstddef>
#include <cstdio>

namespace EmojiTest {

namespace {

std::string literal(std::string_view bytes) { return '"' + escapedForLiteral(bytes) + '"'; }

} // namespace

std::string escapedForLiteral(std::string_view bytes) {
  std::string body;
  for (char c : bytes) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F && c != '"' && c != '\\' && c != '?') {
      body += c;
    } else {
      // Always three octal digits, so a following digit cannot join the escape.
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\%03o", byte);
      body += escape;
    }
  }
  return body;
}

void writeTable(std::ostream& out, std::vector<Group> const& groups, std::string_view source) {
  out << "// Generated at build time by tools/emoji/generate_emoji_table from\n// " << source
      << ". Changes here are lost.\n\n"
      << "#include <zowidgets/host/base/detail/EmojiTable.h>\n\n"
      << "namespace EmojiTable {\n\n";

  out << "Group const kGroups[] = {\n";
  std::size_t first = 0;
  for (Group const& group : groups) {
    std::size_t const end = first + group.emoji.size();
    out << "    {Emoji::" << group.identifier << ", " << literal(group.name) << ", " << first << ", " << end << "},\n";
    first = end;
  }
  out << "};\nstd::size_t const kGroupCount = " << groups.size() << ";\n\n";

  out << "Entry const kEntries[] = {\n";
  for (Group const& group : groups)
    for (Emoji const& emoji : group.emoji)
      out << "    {" << literal(toUTF8(emoji.codePoints)) << ", " << literal(emoji.name) << "},\n";
  out << "};\nstd::size_t const kEntryCount = " << first << ";\n\n"
      << "} // namespace EmojiTable\n";
}

} // namespace EmojiTest
