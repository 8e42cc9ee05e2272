// How much a table of a million rows raises the process's peak memory: ours
// or Qt 5's, one per run, since a peak only grows. Each side first makes and
// paints a ten-row table, so fonts and caches are in place before the
// measure; then it makes the large table, paints it, scrolls to the end and
// paints again.
//
// Usage: table_memory ours|qt [rows]

#include "host/widgets/TableBenchViews.h"

#include <QtWidgets/QScrollBar>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace {

using namespace tablebench;

// A line of /proc/self/status in KiB, such as VmHWM (the peak resident set).
long statusKiB(char const* key) {
  std::ifstream status("/proc/self/status");
  std::string line;
  std::string const prefix = std::string(key) + ":";
  while (std::getline(status, line))
    if (line.rfind(prefix, 0) == 0)
      return std::strtol(line.c_str() + prefix.size(), nullptr, 10);
  return -1;
}

int measureOurs(int rows) {
  useHeadlessScreen();
  { ZoTable warmUp(10); }
  long const before = statusKiB("VmHWM");
  ZoTable table(rows);
  table.table->setCurPos(XY<int>(0, rows - 1), TableWidget::kShowCell);
  table.panel->canvas()->paintPending();
  if (table.table->getLastVisibleIndex() != rows - 1)
    return 1;
  std::printf("ours %d rows: peak rise %ld KiB (peak %ld KiB)\n", rows, statusKiB("VmHWM") - before,
              statusKiB("VmHWM"));
  return 0;
}

int measureQt(int rows) {
  ensureQtApplication();
  {
    QtTable warmUp(10);
    warmUp.paint();
  }
  long const before = statusKiB("VmHWM");
  QtTable table(rows);
  table.paint();
  table.view.scrollToBottom();
  table.paint();
  if (table.view.verticalScrollBar()->value() != table.view.verticalScrollBar()->maximum())
    return 1;
  std::printf("Qt %d rows: peak rise %ld KiB (peak %ld KiB)\n", rows, statusKiB("VmHWM") - before, statusKiB("VmHWM"));
  return 0;
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 2 || (std::strcmp(argv[1], "ours") != 0 && std::strcmp(argv[1], "qt") != 0)) {
    std::fprintf(stderr, "usage: table_memory ours|qt [rows]\n");
    return 2;
  }
  int const rows = argc > 2 ? std::atoi(argv[2]) : 1'000'000;
  int const failed = std::strcmp(argv[1], "ours") == 0 ? measureOurs(rows) : measureQt(rows);
  if (failed)
    std::fprintf(stderr, "the table did not show its last row\n");
  return failed;
}
