// A second process for the announcement tests: it says whether a start-up
// message has been read, as a program started afresh on the preference
// store that $ZOWIDGETS_CONFIG_DIR points at sees it.
//   announcement_helper read <id>
#include <zowidgets/host/shell/StartupMessage.h>

#include <cstdio>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
  if (argc != 3 || std::string_view(argv[1]) != "read") {
    std::fprintf(stderr, "usage: announcement_helper read <id>\n");
    return 2;
  }
  std::string const id = argv[2];
  StartupMessage message;
  message.id = LightweightString<wchar_t>(std::wstring(id.begin(), id.end()).c_str());
  message.recurrence = L"once";
  std::fputs(message.isRead() ? "read" : "not read", stdout);
  return 0;
}
