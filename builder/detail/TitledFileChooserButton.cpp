#include <zowidgets/builder/detail/TitledFileChooserButton.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>

#include <string_view>

namespace {

constexpr ResId kBrowseId = 10553;

// What the first row shows: the file's name, or a dash for none.
LightweightString<wchar_t> shownName(LightweightString<wchar_t> const& path) {
  std::wstring_view const whole = path.view();
  if (whole.empty())
    return L"\u2014";
  std::size_t const slash = whole.find_last_of(L'/');
  return slash == std::wstring_view::npos ? path
                                          : LightweightString<wchar_t>(std::wstring(whole.substr(slash + 1)).c_str());
}

LightweightString<wchar_t> folderOf(LightweightString<wchar_t> const& path) {
  std::wstring_view const whole = path.view();
  std::size_t const slash = whole.find_last_of(L'/');
  return slash == std::wstring_view::npos ? LightweightString<wchar_t>()
                                          : LightweightString<wchar_t>(std::wstring(whole.substr(0, slash)).c_str());
}

} // namespace

TitledFileChooserButton::TitledFileChooserButton(InitArgs const& args)
    : TitleMenuButton(args), path_(args.path), extensions_(args.extensions) {
  showPath(kNoRedraw);
  getBtn().setSelectionHook([this](int row) {
    if (row == kBrowseRow)
      browse();
    // The menu always shows the current file.
    getBtn().setSelectedItem(kCurrentRow);
  });
}

void TitledFileChooserButton::setPath(LightweightString<wchar_t> const& path, eRedrawFlag redraw) {
  path_ = path;
  showPath(redraw);
}

void TitledFileChooserButton::showPath(eRedrawFlag redraw) {
  MenuItem current(UIString(shownName(path_)), Colour::invalid(), Colour::invalid(), UIString(path_));
  std::vector<MenuItem> items{current, MenuItem::separator(), MenuItem(UIString(ellipsisResourceStrW(kBrowseId)))};
  setStrings(items, kCurrentRow, redraw);
}

void TitledFileChooserButton::browse() {
  FileChooserWindow::InitArgs args(GlobCreationInfo(FileChooserWindow::defaultSize()));
  args.title = UIString(L"Choose a file");
  args.browser.folder = folderOf(path_);
  args.browser.extensions = extensions_;
  IdStamp const stamp = EventHandler::stampOf(this);
  args.chosen = [this, stamp](LightweightString<wchar_t> const& path) {
    if (!EventHandler::valid(this, stamp))
      return;
    setPath(path);
    requestSetNewDataValue(path, kDataChangeAll);
  };
  FileChooserWindow::open(args, this);
}
