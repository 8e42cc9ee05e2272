#pragma once

#include "host/shell/TempFolder.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

// A browser on a folder tree the test makes: two folders, files whose
// names need natural order, a name with spaces, one in UTF-8, one without
// an extension and a hidden one.
struct FileBrowserTest : HeadlessScreenTest {
  TempFolder tree;
  FileBrowserBase* browser = nullptr;
  std::vector<FileBrowserEvent> events;

  FileBrowserTest() {
    std::filesystem::create_directory(tree / "folder 2");
    tree.write("folder 2/inner.txt");
    std::filesystem::create_directory(tree / "Folder 10");
    tree.write("file10.txt", "0123456789");
    tree.write("file2.txt", "01");
    tree.write("clip.MOV", std::string(3000, 'x'));
    tree.write("README", "read me");
    tree.write("my clip.mov", "m");
    tree.write("Ünïcødé ✂.txt", "u");
    tree.write(".hidden", "h");
  }

  template <class Browser = FileBrowser> Browser* open(FileBrowserBase::InitArgs args = {}, XY<int> size = {560, 360}) {
    StandardPanel* panel = openPanel(XY<int>(size.x + 40, size.y + 40));
    args.size = size;
    if (args.folder.empty())
      args.folder = tree.wide();
    auto* made = panel->createWidget<Browser>(args, Glob::UserTopLeft(0, 0));
    browser = made;
    browser->addListener(Broadcaster<FileBrowserEvent>::makeCallback(
        [this](FileBrowserEvent const& event) { events.push_back(event); }));
    return made;
  }

  std::vector<std::string> shownNames() const {
    std::vector<std::string> names;
    for (FolderEntry const& entry : browser->entries())
      names.push_back(entry.name);
    return names;
  }
  std::wstring cellText(int row, int column = 0) const {
    Palette palette;
    return browser->getTable()->getAdaptor()->getCellData(XY<int>(column, row), palette).text.getString().str();
  }
  XY<int> pointOnRow(int row) const {
    Zo::Box<int> const box = browser->getTable()->getCellBox(XY<int>(0, row));
    return HeadlessInput::pointOn(*browser->getTable(), XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
  std::string folderName() const { return std::filesystem::path(browser->getFolder().toUTF8().str()).filename(); }
  std::string currentName() const {
    int const row = browser->getCurrentRow();
    return row < 0 ? std::string() : browser->entries()[row].name;
  }
  bool waitFor(std::function<bool()> const& done) { return MessageLoop::runUntil(done, std::chrono::seconds(10)); }
};
