#pragma once

#include <zowidgets/host/events/TypeAhead.h>
#include <zowidgets/host/shell/FolderEntries.h>
#include <zowidgets/host/widgets/lists/TableColumnDescription.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <memory>
#include <vector>

class Button;
class FileBrowserBase;
class FolderWatcher;
class TableWidget;
class TextBoxBase;
class TextLabel;

// What a file browser tells its listeners.
struct ZO_API FileBrowserEvent {
  enum eKind : int {
    kFolderChanged = 1,  // the browser shows another folder
    kCurrentChanged = 2, // another entry became current
    kFileChosen = 3,     // a file was double-clicked or had Return pressed on it
  };
  int kind = kFolderChanged;
  LightweightString<wchar_t> path; // the folder, or the entry's full path
  FileBrowserBase* browser = nullptr;
};

// A browser of one folder of the real file system, as a table: folders
// first, then files, in natural order ("file2" before "file10"), with
// extension filters and hidden files on request.
//
// A double click or Return on a folder opens it, on a file chooses it;
// Backspace, Alt+Up or the button beside the path box goes to the parent
// (the button is inactive at the root); typing the start of a name makes
// that entry current; a path typed or pasted into the path box and confirmed
// with Return is opened (a file's path opens its folder with the file
// current). The folder is watched: names that appear or go show at once. A
// folder that cannot be read shows why in place of its rows, and the
// browser stays usable. Links to folders are opened by their real path, so
// a link loop never grows a path, and a link whose chain loops is listed
// as a broken link and never followed.
//
// Subclasses choose their columns (getColumnDefinitions) and call init()
// from their constructor.
class ZO_API FileBrowserBase : public StandardPanel, public Broadcaster<FileBrowserEvent> {
public:
  // Options for init(), as bits.
  enum eOption : unsigned {
    kShowTitles = 0x01,  // column titles; a click on one sorts by it
    kFramed = 0x02,      // a sunken frame round the rows
    kPathBox = 0x04,     // the path box above the rows
    kFoldersOnly = 0x10, // list folders alone, for choosing a folder
    kNavigate = 0x40,    // folders can be opened and left
  };

  // A column: the key says what it shows ("name", "size" or "modified").
  struct ColumnDefinition {
    LightweightString<char> key;
    TableColumnDescription description;
  };

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    LightweightString<wchar_t> folder; // empty: the user's home folder
    // Extensions of the files shown, without the dot, any case; empty for all.
    std::vector<LightweightString<wchar_t>> extensions;
    bool showHidden = false;
  };

  explicit FileBrowserBase(InitArgs const& args);
  ~FileBrowserBase() override;
  char const* idstring() const override { return "FileBrowserBase"; }

  // The columns: name, size and date unless a subclass says otherwise.
  virtual std::vector<ColumnDefinition> getColumnDefinitions() const;

  // Shows a folder; false (and the browser unchanged) when the path is not a
  // folder. A folder that exists but cannot be read is shown, with its
  // message.
  bool setFolder(LightweightString<wchar_t> const& folder);
  LightweightString<wchar_t> const& getFolder() const noexcept { return folder_; }
  bool goToParent();
  // Opens a path typed by a user: a folder is shown, a file's folder is
  // shown with the file current. False when neither exists.
  bool openPath(LightweightString<wchar_t> const& path);
  // Opens the folder or chooses the file of a row; false for a broken link.
  bool openEntry(int row);

  void setExtensions(std::vector<LightweightString<wchar_t>> const& extensions);
  void setShowHidden(bool show);
  bool showsHidden() const noexcept { return showHidden_; }
  // Reads the folder again, keeping the current entry.
  void refresh();

  // The entries listed now, in the order shown.
  std::vector<FolderEntry> const& entries() const noexcept { return shown_; }
  int findEntry(LightweightString<wchar_t> const& name) const;
  // Makes an entry current; false when it is not listed.
  bool selectEntry(LightweightString<wchar_t> const& name);
  int getCurrentRow() const;
  // Whether the user made the current row current (a press, a key, typing)
  // since the folder was shown, rather than the browser.
  bool isCurrentPicked() const noexcept { return currentPicked_; }
  // The current entry's full path; empty when none is current.
  LightweightString<wchar_t> getCurrentPath() const;
  LightweightString<wchar_t> getPathOf(int row) const;
  // Why the folder is not listed; empty when it is.
  LightweightString<wchar_t> const& getErrorMessage() const noexcept { return error_; }
  // False while a large folder is still being read in slices.
  bool isReadComplete() const noexcept { return !reader_; }
  // Makes the current row follow typed text: the first entry whose name
  // starts with everything typed lately.
  void typeAhead(LightweightString<wchar_t> const& typed);

  TableWidget* getTable() const noexcept { return table_; }
  TextBoxBase* getPathBox() const noexcept { return pathBox_; }
  // Beside the path box of a browser that navigates; null otherwise.
  Button* getParentButton() const noexcept { return parentButton_; }
  TextLabel* getMessageLabel() const noexcept { return messageLabel_; }

  void resize(double width, double height) override;
  // Keys the table passes on before using them itself.
  int handleBrowserKey(int key);

  // How many entries are read before the first are shown.
  static constexpr std::size_t kFirstSlice = 512;

protected:
  // Builds the widgets: call from the subclass's constructor.
  void init(InitArgs const& args, unsigned options);

private:
  class Listing;
  friend class Listing;

  void startReading(LightweightString<wchar_t> const& keepCurrent);
  void readNextSlice();
  void scheduleNextSlice();
  void applyFilters(LightweightString<wchar_t> const& keepCurrent);
  void showError(LightweightString<wchar_t> const& message);
  void layout();
  void folderChangedOnDisk();
  bool isListed(FolderEntry const& entry) const;

  unsigned options_ = 0;
  LightweightString<wchar_t> folder_;
  std::vector<LightweightString<wchar_t>> extensions_;
  bool showHidden_ = false;
  FolderSortKey sortKey_ = FolderSortKey::kName;
  bool ascending_ = true;
  std::vector<FolderEntry> all_;
  std::vector<FolderEntry> shown_;
  std::unique_ptr<FolderReader> reader_;
  std::unique_ptr<FolderWatcher> watcher_;
  LightweightString<wchar_t> error_;
  TypeAhead typed_;
  bool currentPicked_ = false;
  // The current row is the first only because it came first.
  bool currentAutomatic_ = true;
  bool movingCurrent_ = false;
  unsigned readSerial_ = 0;
  std::unique_ptr<Listing> listing_;
  TableWidget* table_ = nullptr;
  TextBoxBase* pathBox_ = nullptr;
  Button* parentButton_ = nullptr;
  TextLabel* messageLabel_ = nullptr;
};
