// The smallest program with a window: a form built from a JSON description on
// the headless screen, and its picture saved. Installed with the library
// (share/zowidgets/examples/first-panel) and built there by the install
// test; docs/first-program.md walks through it.
#include <zowidgets/zowidgets.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: first_panel OUT.png\n";
    return 2;
  }
  // Tests and pictures: a virtual screen, the same on every machine.
  useHeadlessScreen();

  // A window with a title bar, sized for three rows.
  int const rows = 3;
  XY<int> const userArea(16 * UifStd::getRowHeight(), rows * (UifStd::getRowHeight() + UifStd::getRowGap()));
  StandardPanel::InitArgs args(
      StandardPanel::calcPanelSize(userArea, StandardPanel::kTitle, StandardPanel::getDefaultBorder()));
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(L"First panel");
  auto* panel = new StandardPanel(args);
  GlobManager::realize(panel);

  // Rows from a description: a tick box, a slider with its number, a text.
  UIBuilder::buildFromJSON(LR"({"rows": [
    {"type": "bool", "name": "on", "legend": "Enabled", "default": true},
    {"type": "int", "name": "count", "legend": "Count", "min": 0, "max": 10, "default": 3},
    {"type": "text", "name": "title", "legend": "Title", "value": "Clip"}]})",
                           panel);

  // Work the windows asked for (layout, painting) is done by the message
  // loop; a display program's loop runs it, a headless one runs it here.
  MessageLoop::runPending();
  if (!HeadlessScreen::saveWindowShot(*panel, argv[1])) {
    std::cerr << "first_panel: cannot write " << argv[1] << "\n";
    return 1;
  }
  std::cout << "wrote " << argv[1] << ", " << panel->width() << " by " << panel->height() << " pixels\n";
  GlobManager::requestDeletion(panel);
  MessageLoop::runPending();
  return 0;
}
