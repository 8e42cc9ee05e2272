// A panel on the real display for the end-to-end tests: it reads commands on
// stdin, one a line, and answers each with one line of JSON on stdout.
//   state       what the panel and its probe have seen
//   pixel X Y   the screen's colour at an X point (top-down), through the
//               toolkit's screen reading
//   copy TEXT   puts TEXT on the session's clipboard
//   grow        makes the panel two rows wider and one row taller
//   retitle T   gives the panel the title T
//   form        the values and widget places of the built form (--form,
//               --form-json)
//   dropper     the eye dropper's place, capture and picked colours
//               (--screen-tools)
//   magnify L   opens a magnifier at the pointer at level L (--screen-tools)
//   magnifier   that magnifier's view and the colours it shows
//   picker      the colour picker's hex text and its eye dropper (--picker)
//   lists       the list's and the tree's selections, what is open, the
//               table's current cell and edited cells, and
//               where their first rows are (--lists)
//   containers  the current tab and the tabs' places, the splitter's place
//               and the widths beside it (--containers)
//   widget C N  the Nth (from 0) widget of class C on the gallery page:
//               its place, the text of text boxes, labels, buttons,
//               messages and gauges, a gauge's measure, and how far a table
//               is scrolled sideways and which columns it shows (--gallery)
//   quit
// With --shot FILE it instead paints the same panel on the headless screen,
// saves that window's picture and exits, for comparison with the display.
// With --paste it prints the session's clipboard text and exits. With --form
// a panel built from parameters opens beside the first (with --form-json,
// the same form built from a description); with --screen-tools
// a panel with an eye dropper opens above it; with --picker a colour picker
// opens beside it; with --lists a list and a tree open beside it; with
// --containers tabs and a splitter open beside it; with --gallery NAME the
// gallery's page of that name opens beside it.

#include "ContainersPanel.h"
#include "FormPanel.h"
#ifdef ZO_E2E_GALLERY
#include "GalleryPagePanel.h"
#endif
#include "InputProbe.h"
#include "ListsPanel.h"
#include "PickerPanel.h"
#include "ScreenToolsPanel.h"

#include <zowidgets/host/display/BackendChoice.h>
#include <zowidgets/host/display/DisplayScreen.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>

namespace {

struct Session {
  StandardPanel* panel = nullptr;
  InputProbe* probe = nullptr;
  std::unique_ptr<FormPanel> form;
  std::unique_ptr<ScreenToolsPanel> screenTools;
  std::unique_ptr<PickerPanel> picker;
  std::unique_ptr<ListsPanel> lists;
  std::unique_ptr<ContainersPanel> containers;
#ifdef ZO_E2E_GALLERY
  std::unique_ptr<GalleryPagePanel> gallery;
#endif
  bool quit = false;
};

void openPanel(Session& session) {
  int const row = UifStd::getRowHeight();
  StandardPanel::InitArgs args(XY<int>(row * 16, row * 6));
  args.screenPosition = XY<int>(row * 8, row * 8);
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(L"e2e");
  session.panel = new StandardPanel(args);
  Zo::Box<int> const user = session.panel->getUserArea();
  session.probe = new InputProbe(XY<int>(user.width(), row * 2));
  session.panel->addChild(session.probe, Glob::UserTopLeft(0, 0));
  GlobManager::realize(session.panel);
}

std::string jsonString(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

// A box on our bottom-up screen as X's top-down x, y, width, height.
std::string jsonBox(Zo::Box<int> const& box) {
  int const screenHeight = screenBackend().screenSize().y;
  std::ostringstream out;
  out << "{\"x\":" << box.x0 << ",\"y\":" << screenHeight - box.y1 << ",\"w\":" << box.width()
      << ",\"h\":" << box.height() << "}";
  return out.str();
}

std::string stateJson(Session const& session) {
  InputProbe const& probe = *session.probe;
  XY<int> const panelAt = session.panel->screenPosition();
  std::ostringstream out;
  out << "{\"window\":" << jsonBox(session.panel->canvas()->screenBox())
      << ",\"probe\":" << jsonBox(Zo::Box<int>(0, 0, probe.width(), probe.height()).translated(probe.screenPosition()))
      << ",\"title\":" << jsonBox(session.panel->getTitleArea().translated(panelAt)) << ",\"downs\":" << probe.downs()
      << ",\"ups\":" << probe.ups() << ",\"clicks\":" << probe.lastClicks() << ",\"lastDown\":[" << probe.lastDown().x
      << "," << probe.lastDown().y << "],\"keys\":" << probe.keysDown() << ",\"lastKey\":" << probe.lastKey()
      << ",\"wheel\":" << probe.wheelSteps() << ",\"scale\":" << UifStd::getScale()
      << ",\"text\":" << jsonString(probe.typed()) << "}";
  return out.str();
}

std::string pixelJson(int x, int topDownY) {
  int const y = screenBackend().screenSize().y - 1 - topDownY;
  auto image = mediaServices().getHostImage(Zo::Box<int>(x, y, x + 1, y + 1));
  char colour[16];
  std::snprintf(colour, sizeof colour, "#%06x", image ? image->pixelAt(XY<int>(x, y)) & 0xffffffu : 0u);
  return std::string("{\"pixel\":\"") + colour + "\"}";
}

void answer(Session& session, std::string const& line) {
  std::istringstream words(line);
  std::string command;
  words >> command;
  if (command == "state") {
    std::cout << stateJson(session) << std::endl;
  } else if (command == "pixel") {
    int x = 0, y = 0;
    words >> x >> y;
    std::cout << pixelJson(x, y) << std::endl;
  } else if (command == "copy") {
    std::string text;
    std::getline(words >> std::ws, text);
    OS().setClipboardText(toWide(text));
    std::cout << "{\"copied\":" << jsonString(text) << "}" << std::endl;
  } else if (command == "grow") {
    int const row = UifStd::getRowHeight();
    session.panel->resize(session.panel->width() + row * 2, session.panel->height() + row);
    std::cout << stateJson(session) << std::endl;
  } else if (command == "retitle") {
    std::string text;
    std::getline(words >> std::ws, text);
    session.panel->setTitle(UIString(toWide(text)));
    std::cout << "{\"title\":" << jsonString(text) << "}" << std::endl;
  } else if (command == "form") {
    std::cout << (session.form ? session.form->stateJson(&jsonBox) : std::string("{\"error\":\"no form\"}"))
              << std::endl;
  } else if (command == "dropper" || command == "magnify" || command == "magnifier") {
    if (!session.screenTools) {
      std::cout << "{\"error\":\"no screen tools\"}" << std::endl;
    } else if (command == "dropper") {
      std::cout << session.screenTools->dropperJson(&jsonBox) << std::endl;
    } else if (command == "magnify") {
      int level = 0;
      words >> level;
      std::cout << session.screenTools->showMagnifier(level, &jsonBox) << std::endl;
    } else {
      std::cout << session.screenTools->magnifierJson(&jsonBox) << std::endl;
    }
  } else if (command == "picker") {
    std::cout << (session.picker ? session.picker->stateJson(&jsonBox) : std::string("{\"error\":\"no picker\"}"))
              << std::endl;
  } else if (command == "lists") {
    std::cout << (session.lists ? session.lists->stateJson(&jsonBox) : std::string("{\"error\":\"no lists\"}"))
              << std::endl;
  } else if (command == "containers") {
    std::cout << (session.containers ? session.containers->stateJson(&jsonBox)
                                     : std::string("{\"error\":\"no containers\"}"))
              << std::endl;
  } else if (command == "widget") {
    std::string className;
    int index = 0;
    words >> className >> index;
#ifdef ZO_E2E_GALLERY
    std::cout << (session.gallery ? session.gallery->widgetJson(className, index, &jsonBox, &jsonString)
                                  : std::string("{\"error\":\"no gallery page\"}"))
              << std::endl;
#else
    std::cout << "{\"error\":\"built without the gallery\"}" << std::endl;
#endif
  } else if (command == "quit") {
    session.quit = true;
  } else if (!command.empty()) {
    std::cout << "{\"error\":" << jsonString("unknown command " + command) << "}" << std::endl;
  }
}

int saveHeadlessShot(char const* path) {
  Session session;
  openPanel(session);
  bool const saved = HeadlessScreen::saveWindowShot(*session.panel, path);
  GlobManager::requestDeletion(session.panel);
  MessageLoop::runPending();
  return saved ? 0 : 1;
}

bool hasFlag(int argc, char** argv, std::string_view flag) {
  for (int i = 1; i < argc; ++i)
    if (argv[i] == flag)
      return true;
  return false;
}

// The word after a flag; empty when the flag is not there.
std::string flagValue(int argc, char** argv, std::string_view flag) {
  for (int i = 1; i + 1 < argc; ++i)
    if (argv[i] == flag)
      return argv[i + 1];
  return {};
}

} // namespace

int main(int argc, char** argv) {
  for (int i = 1; i + 1 < argc; ++i)
    if (std::string_view(argv[i]) == "--shot") {
      useHeadlessScreen();
      return saveHeadlessShot(argv[i + 1]);
    }
  if (chooseScreenBackend(argc, argv) != ScreenBackendKind::display) {
    std::cerr << "zoe2e: needs a display\n";
    return 1;
  }
  if (hasFlag(argc, argv, "--paste")) {
    std::cout << toNarrow(OS().clipboardText()) << std::endl;
    return 0;
  }
  Session session;
  openPanel(session);
  if (hasFlag(argc, argv, "--form") || hasFlag(argc, argv, "--form-json")) {
    int const row = UifStd::getRowHeight();
    session.form = std::make_unique<FormPanel>(XY<int>(row * 26, row * 8), hasFlag(argc, argv, "--form")
                                                                               ? FormPanel::Source::kParameters
                                                                               : FormPanel::Source::kDescription);
  }
  if (hasFlag(argc, argv, "--screen-tools")) {
    int const row = UifStd::getRowHeight();
    session.screenTools = std::make_unique<ScreenToolsPanel>(XY<int>(row * 8, row * 16));
  }
  if (hasFlag(argc, argv, "--picker")) {
    int const row = UifStd::getRowHeight();
    session.picker = std::make_unique<PickerPanel>(XY<int>(row * 26, row * 8));
  }
  if (hasFlag(argc, argv, "--lists")) {
    int const row = UifStd::getRowHeight();
    session.lists = std::make_unique<ListsPanel>(XY<int>(row * 26, row * 8));
  }
  if (hasFlag(argc, argv, "--containers")) {
    int const row = UifStd::getRowHeight();
    session.containers = std::make_unique<ContainersPanel>(XY<int>(row * 26, row * 8));
  }
#ifdef ZO_E2E_GALLERY
  if (std::string const page = flagValue(argc, argv, "--gallery"); !page.empty()) {
    int const row = UifStd::getRowHeight();
    session.gallery = std::make_unique<GalleryPagePanel>(page, XY<int>(row * 26, row * 8));
  }
#endif
  // Commands arrive on a thread of their own and are answered on the
  // user-interface thread, between window events.
  std::thread reader([&session] {
    std::string line;
    while (std::getline(std::cin, line))
      defer([&session, line] { answer(session, line); });
    defer([&session] { session.quit = true; });
  });
  reader.detach();
  displayScreen()->runUntil([&] { return session.quit; }, std::chrono::hours(1));
  session.form.reset();
  session.screenTools.reset();
  session.picker.reset();
  session.lists.reset();
  session.containers.reset();
#ifdef ZO_E2E_GALLERY
  session.gallery.reset();
#endif
  GlobManager::requestDeletion(session.panel);
  MessageLoop::runPending();
  return 0;
}
