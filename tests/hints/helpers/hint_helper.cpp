// A second process for the hint tests: it says whether a hint has been
// acknowledged, as a program started afresh on the preference store that
// $ZOWIDGETS_CONFIG_DIR points at sees it.
//   hint_helper issued <id>
#include <zowidgets/hints/Hint.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int argc, char** argv) {
  if (argc != 3 || std::string_view(argv[1]) != "issued") {
    std::fprintf(stderr, "usage: hint_helper issued <id>\n");
    return 2;
  }
  unsigned long const id = std::strtoul(argv[2], nullptr, 10);
  Hint const hint(UIString(L"Asked from another process"), static_cast<unsigned>(id));
  std::fputs(hint.hasBeenIssued() ? "issued" : "not issued", stdout);
  return 0;
}
