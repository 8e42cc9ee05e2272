// Builds the emoji table compiled into zohost from Unicode's emoji test
// data:
//   generate_emoji_table <emoji-test.txt> <output.cpp>
// Fails, naming the file, when it cannot be read or holds no fully-qualified
// emoji; malformed lines are skipped and counted.

#include "EmojiTableWriter.h"
#include "EmojiTestParser.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: generate_emoji_table <emoji-test.txt> <output.cpp>\n");
    return 2;
  }
  std::string const input = argv[1];
  std::string const output = argv[2];

  std::ifstream file(input);
  if (!file) {
    std::fprintf(stderr, "generate_emoji_table: cannot read %s\n", input.c_str());
    return 1;
  }
  EmojiTest::Collector collector;
  for (std::string line; std::getline(file, line);)
    collector.add(line);
  if (file.bad()) {
    std::fprintf(stderr, "generate_emoji_table: error while reading %s\n", input.c_str());
    return 1;
  }
  std::vector<EmojiTest::Group> const groups = collector.groups();
  if (groups.empty()) {
    std::fprintf(stderr, "generate_emoji_table: %s holds no fully-qualified emoji\n", input.c_str());
    return 1;
  }
  if (collector.malformedLines() > 0)
    std::fprintf(stderr, "generate_emoji_table: %s: skipped %zu malformed lines\n", input.c_str(),
                 collector.malformedLines());

  // Written whole or not at all, so a failed run leaves no half table behind.
  std::ostringstream source;
  EmojiTest::writeTable(source, groups, input);
  std::string const temporary = output + ".part";
  std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
  out << source.str();
  out.close();
  if (!out || std::rename(temporary.c_str(), output.c_str()) != 0) {
    std::remove(temporary.c_str());
    std::fprintf(stderr, "generate_emoji_table: cannot write %s\n", output.c_str());
    return 1;
  }
  return 0;
}
