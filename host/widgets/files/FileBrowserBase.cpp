#include <zowidgets/host/widgets/files/FileBrowserBase.h>

#include <zowidgets/host/base/ByteSizes.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/events/TypeAhead.h>
#include <zowidgets/host/shell/FolderWatcher.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwctype>
#include <functional>
#include <sys/stat.h>

namespace {

constexpr ResId kNameTitleId = 10493;
// Typing pauses longer than this start a new name.
constexpr std::size_t kLaterSlice = 4096;

std::string utf8(LightweightString<wchar_t> const& text) { return text.toUTF8().str(); }
LightweightString<wchar_t> wide(std::string_view text) { return LightweightString<wchar_t>::fromUTF8(text); }

// The real path of a folder, links resolved, so that a link loop never
// makes a path grow; the path as given when it cannot be resolved.
std::string realFolder(std::string const& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

std::string joined(std::string const& folder, std::string_view name) {
  return folder.ends_with('/') ? folder + std::string(name) : folder + '/' + std::string(name);
}

LightweightString<wchar_t> homeFolder() {
  char const* home = std::getenv("HOME");
  return wide(home && *home ? home : "/");
}

LightweightString<wchar_t> dateText(std::int64_t seconds) {
  std::time_t const time = static_cast<std::time_t>(seconds);
  std::tm local{};
  localtime_r(&time, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
  return wide(text);
}

// The table of the browser: it offers keys and typed text to the browser
// before using them, so Return opens rather than edits.
class FileTable : public TableWidget {
public:
  FileTable(InitArgs const& args, FileBrowserBase& browser) : TableWidget(args), browser_(browser) {}
  char const* idstring() const override { return "FileTable"; }

  int handleKeyboardEvent(int key) override {
    if (int const used = browser_.handleBrowserKey(key))
      return used;
    return TableWidget::handleKeyboardEvent(key);
  }
  int react(Event const& event) override {
    if (event.type == Event::kTextInput && !event.text.empty()) {
      browser_.typeAhead(wide(event.text.view()));
      return 1;
    }
    return TableWidget::react(event);
  }

private:
  FileBrowserBase& browser_;
};

} // namespace

// The model the table reads: the browser's shown entries in its columns.
class FileBrowserBase::Listing : public iTableAdaptor {
public:
  explicit Listing(FileBrowserBase& browser) : browser_(browser), columns_(browser.getColumnDefinitions()) {}

  int getSize() override { return static_cast<int>(browser_.shown_.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    std::vector<TableColumnDescription> out;
    for (ColumnDefinition const& column : columns_)
      out.push_back(column.description);
    return out;
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data;
    data.palette = palette;
    data.readOnly = true;
    data.fieldType = DBFieldTypes::kReadOnly;
    if (pos.y < 0 || pos.y >= getSize() || pos.x < 0 || pos.x >= static_cast<int>(columns_.size()))
      return data;
    FolderEntry const& entry = browser_.shown_[pos.y];
    LightweightString<char> const& key = columns_[pos.x].key;
    if (key == "name") {
      LightweightString<wchar_t> name = wide(entry.name);
      if (entry.isFolder)
        name += L"/";
      data.text = UIString(name);
    } else if (key == "size") {
      if (entry.isBrokenLink)
        data.text = UIString(L"broken link");
      else if (!entry.isFolder)
        data.text = UIString(bytesAsString(entry.size, 1));
    } else if (key == "modified") {
      if (entry.modified != 0)
        data.text = UIString(dateText(entry.modified));
    }
    return data;
  }
  std::int64_t getRowID(int row) override {
    if (row < 0 || row >= getSize())
      return -1;
    return static_cast<std::int64_t>(std::hash<std::string>{}(browser_.shown_[row].name) >> 1);
  }
  bool handleMouseClickEvent(XY<int> const& cell, Event const& event) override {
    if (event.type != Event::kMouseDown || !(event.buttons & kMouseLeft))
      return false;
    if (event.clicks >= 2) {
      browser_.openEntry(cell.y);
      return true;
    }
    // A press on the row already current picks it as much as one that moves.
    browser_.currentPicked_ = true;
    return false;
  }
  bool sort(int column, bool ascending) override {
    if (column < 0 || column >= static_cast<int>(columns_.size()))
      return false;
    LightweightString<char> const& key = columns_[column].key;
    browser_.sortKey_ = key == "size"       ? FolderSortKey::kSize
                        : key == "modified" ? FolderSortKey::kModified
                                            : FolderSortKey::kName;
    browser_.ascending_ = ascending;
    sortFolderEntries(browser_.shown_, browser_.sortKey_, ascending);
    return true;
  }

private:
  FileBrowserBase& browser_;
  std::vector<ColumnDefinition> columns_;
};

FileBrowserBase::FileBrowserBase(InitArgs const& args) : StandardPanel(args) {}

FileBrowserBase::~FileBrowserBase() {
  // The table reads the listing until it goes: let it go first.
  if (table_)
    table_->setAdaptor(nullptr);
}

std::vector<FileBrowserBase::ColumnDefinition> FileBrowserBase::getColumnDefinitions() const {
  TableColumnDescription name{UIString(kNameTitleId)};
  TableColumnDescription size(UIString(L"Size"), TableColumnDescription::calcSizeFor(L"1023.9 MB"));
  size.setAlignment(Glib::eTextAlignment::Right);
  TableColumnDescription modified(UIString(L"Modified"), TableColumnDescription::calcSizeFor(L"2000-00-00 00:00"));
  return {ColumnDefinition{"name", name}, ColumnDefinition{"size", size}, ColumnDefinition{"modified", modified}};
}

void FileBrowserBase::init(InitArgs const& args, unsigned options) {
  Drawable::Suspender const holdRedraws;
  options_ = options;
  extensions_ = args.extensions;
  showHidden_ = args.showHidden;
  listing_ = std::make_unique<Listing>(*this);
  Zo::Box<int> const area = getUserArea();
  if (options_ & kPathBox) {
    TextBox::InitArgs boxArgs(GlobCreationInfo(static_cast<unsigned short>(area.width()),
                                               static_cast<unsigned short>(UifStd::getRowHeight())));
    pathBox_ = createWidget<TextBox>(boxArgs, UserTopLeft(0, 0));
    pathBox_->setName("path");
    pathBox_->addListener(Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const& event) {
      if (event.kind == TextBoxEvent::kReturnPressed && !openPath(event.text))
        showError(L"No such folder or file: " + event.text);
    }));
    // The way up for the pointer, as Backspace is for the keys.
    if (options_ & kNavigate) {
      int const side = UifStd::getRowHeight();
      parentButton_ = createWidget<Button>(Button::InitArgs(UIString(), XY<int>(side, side)), UserTopLeft(0, 0));
      parentButton_->setName("parent");
      parentButton_->setIconName("folder-up.png", kNoRedraw);
      parentButton_->setTextColour(getPalette().text(0), kNoRedraw);
      parentButton_->setContextString(TooltipDetails(UIString(L"Parent folder")));
      parentButton_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { goToParent(); }));
    }
  }
  TableWidget::InitArgs tableArgs(
      GlobCreationInfo(static_cast<unsigned short>(area.width()), static_cast<unsigned short>(area.height())));
  tableArgs.adaptor = listing_.get();
  tableArgs.options =
      ((options_ & kShowTitles) ? TableWidget::kShowTitles : 0) | ((options_ & kFramed) ? TableWidget::kFramed : 0);
  table_ = new FileTable(tableArgs, *this);
  addChild(table_, UserBottomLeft(0, 0));
  table_->setName("files");
  table_->hideTextEntryBox(true);
  table_->addListener(Broadcaster<TableWidgetEvent>::makeCallback([this](TableWidgetEvent const& event) {
    if (event.type != TableWidgetEvent::kCurrentChanged)
      return;
    currentPicked_ = !movingCurrent_;
    currentAutomatic_ = false;
    broadcast(FileBrowserEvent{FileBrowserEvent::kCurrentChanged, getCurrentPath(), this});
  }));
  TextLabel::InitArgs labelArgs(GlobCreationInfo(static_cast<unsigned short>(area.width()),
                                                 static_cast<unsigned short>(2 * UifStd::getRowHeight())));
  labelArgs.wordWrap = true;
  labelArgs.alignment = Glib::eTextAlignment::Centre;
  messageLabel_ = createWidget<TextLabel>(labelArgs, UserBottomLeft(0, 0));
  messageLabel_->setName("message");
  messageLabel_->setVisible(false);
  layout();
  if (!setFolder(args.folder.empty() ? homeFolder() : args.folder))
    setFolder(homeFolder());
}

void FileBrowserBase::layout() {
  if (!table_)
    return;
  Zo::Box<int> const area = getUserArea();
  int top = area.y1;
  if (pathBox_) {
    int boxWidth = area.width();
    if (parentButton_) {
      boxWidth = std::max(0, boxWidth - parentButton_->width() - UifStd::getWidgetGap());
      parentButton_->setPosition(XY<int>(area.x1 - parentButton_->width(), top - parentButton_->height()));
    }
    pathBox_->setPosition(XY<int>(area.x0, top - pathBox_->height()));
    pathBox_->resize(boxWidth, pathBox_->height());
    top -= pathBox_->height() + UifStd::getRowGap();
  }
  int const tableHeight = std::max(UifStd::getRowHeight(), top - area.y0);
  table_->setPosition(XY<int>(area.x0, area.y0));
  table_->resize(area.width(), tableHeight);
  int const labelHeight = messageLabel_->height();
  messageLabel_->setPosition(XY<int>(area.x0, area.y0 + std::max(0, (tableHeight - labelHeight) / 2)));
  messageLabel_->resize(area.width(), labelHeight);
}

void FileBrowserBase::resize(double width, double height) {
  StandardPanel::resize(width, height);
  layout();
}

bool FileBrowserBase::setFolder(LightweightString<wchar_t> const& folder) {
  struct stat info {};
  std::string const path = realFolder(utf8(folder));
  if (stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))
    return false;
  Drawable::Suspender const holdRedraws;
  folder_ = wide(path);
  if (pathBox_)
    pathBox_->setString(folder_);
  if (parentButton_)
    parentButton_->setActive(folder_ != L"/", kRedrawNow);
  typed_.clear();
  currentPicked_ = false;
  watcher_ = std::make_unique<FolderWatcher>(path, [this] { folderChangedOnDisk(); });
  startReading({});
  if (table_ && !shown_.empty())
    table_->setCurPos(XY<int>(0, 0), TableWidget::kShowCell | TableWidget::kQuiet);
  currentAutomatic_ = true;
  broadcast(FileBrowserEvent{FileBrowserEvent::kFolderChanged, folder_, this});
  return true;
}

bool FileBrowserBase::goToParent() {
  if (!(options_ & kNavigate) || folder_ == L"/")
    return false;
  std::string const path = utf8(folder_);
  std::size_t const slash = path.rfind('/');
  std::string const parent = slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
  LightweightString<wchar_t> const leaving = wide(path.substr(slash + 1));
  if (!setFolder(wide(parent)))
    return false;
  selectEntry(leaving);
  return true;
}

bool FileBrowserBase::openPath(LightweightString<wchar_t> const& typed) {
  std::string path = utf8(typed);
  while (!path.empty() && std::isspace(static_cast<unsigned char>(path.back())))
    path.pop_back();
  if (path.starts_with("~"))
    path = utf8(homeFolder()) + path.substr(1);
  else if (!path.starts_with("/"))
    path = joined(utf8(folder_), path);
  struct stat info {};
  if (stat(path.c_str(), &info) != 0)
    return false;
  if (S_ISDIR(info.st_mode))
    return setFolder(wide(path));
  std::size_t const slash = path.rfind('/');
  if (!setFolder(wide(slash == 0 ? "/" : path.substr(0, slash))))
    return false;
  selectEntry(wide(path.substr(slash + 1)));
  return true;
}

bool FileBrowserBase::openEntry(int row) {
  if (row < 0 || row >= static_cast<int>(shown_.size()))
    return false;
  FolderEntry const entry = shown_[row];
  if (entry.isBrokenLink)
    return false;
  LightweightString<wchar_t> const path = getPathOf(row);
  if (entry.isFolder)
    return (options_ & kNavigate) && setFolder(path);
  broadcast(FileBrowserEvent{FileBrowserEvent::kFileChosen, path, this});
  return true;
}

void FileBrowserBase::setExtensions(std::vector<LightweightString<wchar_t>> const& extensions) {
  extensions_ = extensions;
  applyFilters(getCurrentRow() >= 0 ? wide(shown_[getCurrentRow()].name) : LightweightString<wchar_t>());
}

void FileBrowserBase::setShowHidden(bool show) {
  if (show == showHidden_)
    return;
  showHidden_ = show;
  applyFilters(getCurrentRow() >= 0 ? wide(shown_[getCurrentRow()].name) : LightweightString<wchar_t>());
}

void FileBrowserBase::refresh() {
  // As for the slices of a large folder: only a chosen entry is kept.
  int const row = currentAutomatic_ ? -1 : getCurrentRow();
  startReading(row >= 0 ? wide(shown_[row].name) : LightweightString<wchar_t>());
}

void FileBrowserBase::folderChangedOnDisk() {
  struct stat info {};
  if (stat(utf8(folder_).c_str(), &info) != 0) {
    // The folder itself went: show its nearest living parent.
    if (!goToParent())
      showError(L"This folder no longer exists.");
    return;
  }
  refresh();
}

void FileBrowserBase::startReading(LightweightString<wchar_t> const& keepCurrent) {
  ++readSerial_;
  all_.clear();
  reader_ = std::make_unique<FolderReader>(utf8(folder_));
  if (int const error = reader_->error()) {
    reader_.reset();
    shown_.clear();
    if (table_)
      table_->refresh();
    showError(L"This folder cannot be read: " + wide(std::strerror(error)));
    return;
  }
  error_.clear();
  if (messageLabel_)
    messageLabel_->setVisible(false);
  // A large folder shows its first slice at once; the rest is read a slice
  // at a time from the message queue, so the window answers meanwhile.
  if (!reader_->readSome(kFirstSlice, all_))
    reader_.reset();
  applyFilters(keepCurrent);
  if (reader_)
    scheduleNextSlice();
}

void FileBrowserBase::readNextSlice() {
  if (!reader_)
    return;
  bool const more = reader_->readSome(kLaterSlice, all_);
  // An entry chosen (by the user or the program) stays current as the
  // slices come in; the first row, current only because it was first, stays
  // the first row, whichever entry that now is.
  int const row = currentAutomatic_ ? -1 : getCurrentRow();
  LightweightString<wchar_t> const current = row >= 0 ? wide(shown_[row].name) : LightweightString<wchar_t>();
  if (!more)
    reader_.reset();
  applyFilters(current);
  if (more)
    scheduleNextSlice();
}

void FileBrowserBase::scheduleNextSlice() {
  // A folder shown since, or a browser gone, drops the slice.
  unsigned const serial = readSerial_;
  IdStamp const stamp = handlerStamp();
  deferUnique(
      [this, serial, stamp] {
        if (EventHandler::valid(this, stamp) && serial == readSerial_)
          readNextSlice();
      },
      LightweightString<char>(("FileBrowserBase read " + stamp.asString()).c_str()));
}

bool FileBrowserBase::isListed(FolderEntry const& entry) const {
  if (entry.isHidden() && !showHidden_)
    return false;
  if (entry.isFolder)
    return true;
  if (options_ & kFoldersOnly)
    return false;
  if (extensions_.empty())
    return true;
  LightweightString<wchar_t> const extension = wide(entry.extension());
  return std::any_of(extensions_.begin(), extensions_.end(), [&](LightweightString<wchar_t> const& wanted) {
    std::wstring_view want = wanted.view();
    if (want.starts_with(L'.'))
      want.remove_prefix(1);
    std::wstring_view const have = extension.view();
    return want.size() == have.size() && std::equal(want.begin(), want.end(), have.begin(), [](wchar_t a, wchar_t b) {
             return std::towlower(a) == std::towlower(b);
           });
  });
}

void FileBrowserBase::applyFilters(LightweightString<wchar_t> const& keepCurrent) {
  shown_.clear();
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(shown_),
               [this](FolderEntry const& entry) { return isListed(entry); });
  sortFolderEntries(shown_, sortKey_, ascending_);
  if (!table_)
    return;
  Drawable::Suspender const holdRedraws;
  int const offset = table_->getScrollOffset();
  table_->refresh();
  if (int const kept = keepCurrent.empty() ? -1 : findEntry(keepCurrent); kept >= 0) {
    // Read again (a change on disk, the next slice): the same entry stays
    // current and the list stays where the user scrolled it.
    table_->setCurPos(XY<int>(0, kept), TableWidget::kQuiet);
    table_->setScrollOffset(offset);
  } else if (!shown_.empty() && table_->getCurPos().y < 0) {
    table_->setCurPos(XY<int>(0, 0), TableWidget::kShowCell | TableWidget::kQuiet);
    currentAutomatic_ = true;
  } else if (!shown_.empty() && currentAutomatic_) {
    // The table follows its current entry by name; one that was current only
    // because it came first gives way to the new first.
    table_->setCurPos(XY<int>(0, 0), TableWidget::kQuiet);
  }
}

void FileBrowserBase::showError(LightweightString<wchar_t> const& message) {
  error_ = message;
  if (!messageLabel_)
    return;
  messageLabel_->setString(UIString(message));
  messageLabel_->setVisible(true);
  invalidate();
}

int FileBrowserBase::findEntry(LightweightString<wchar_t> const& name) const {
  std::string const wanted = utf8(name);
  auto const found =
      std::find_if(shown_.begin(), shown_.end(), [&](FolderEntry const& entry) { return entry.name == wanted; });
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

bool FileBrowserBase::selectEntry(LightweightString<wchar_t> const& name) {
  int const row = findEntry(name);
  if (row < 0 || !table_)
    return false;
  movingCurrent_ = true;
  table_->setCurPos(XY<int>(0, row), TableWidget::kShowCell);
  movingCurrent_ = false;
  currentAutomatic_ = false;
  return true;
}

int FileBrowserBase::getCurrentRow() const {
  if (!table_)
    return -1;
  int const row = table_->getCurPos().y;
  return row >= 0 && row < static_cast<int>(shown_.size()) ? row : -1;
}

LightweightString<wchar_t> FileBrowserBase::getPathOf(int row) const {
  if (row < 0 || row >= static_cast<int>(shown_.size()))
    return {};
  return wide(joined(utf8(folder_), shown_[row].name));
}

LightweightString<wchar_t> FileBrowserBase::getCurrentPath() const { return getPathOf(getCurrentRow()); }

void FileBrowserBase::typeAhead(LightweightString<wchar_t> const& typed) {
  typed_.add(typed.view());
  for (std::size_t row = 0; row < shown_.size(); ++row) {
    if (typed_.matches(wide(shown_[row].name).view())) {
      table_->setCurPos(XY<int>(0, static_cast<int>(row)), TableWidget::kShowCell);
      return;
    }
  }
}

int FileBrowserBase::handleBrowserKey(int key) {
  int const bare = key & ~kKeyModifierMask;
  bool const alt = (key & kKeyAlt) != 0;
  bool const ctrl = (key & kKeyCtrl) != 0;
  // Both are used even when there is nowhere to go, so they never fall
  // through to the table.
  if ((bare == kKeyBackspace || (alt && bare == kKeyUp)) && (options_ & kNavigate)) {
    goToParent();
    return 1;
  }
  if (bare == kKeyReturn && !alt && !ctrl) {
    openEntry(getCurrentRow());
    return 1;
  }
  // A list of names has one column that matters: Home and End go to its
  // first and last entries.
  if ((bare == kKeyHome || bare == kKeyEnd) && !alt && table_ && !shown_.empty()) {
    table_->setCurPos(XY<int>(0, bare == kKeyHome ? 0 : static_cast<int>(shown_.size()) - 1), TableWidget::kShowCell);
    return 1;
  }
  // Printable keys come back as text; keep the table from starting an edit.
  if (bare >= ' ' && bare < kKeySpecial && !ctrl && !alt)
    return 1;
  return 0;
}
