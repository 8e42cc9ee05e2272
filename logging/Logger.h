#pragma once

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/toolkit/PositionNames.h>
#include <zowidgets/host/toolkit/TaskLog.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

class Gauge;

// The panel in which long work reports to the user: a table of styled rows
// fed from a task log that any thread may write to, an optional gauge under
// it and optional buttons. The panel never writes to its rows directly:
// write() goes to the log, and the log's lines come back on the
// user-interface thread, every burst of them in one refresh.
class ZO_API Logger : public StandardPanel, public LoggerBase, public iTableAdaptor {
public:
  // Flag bits of InitArgs::flags.
  enum eFlag : unsigned {
    kFlagFirstOption = 0x001, // kept for the caller; nothing reads it
    kFlagSharkGauge = 0x004,  // a gauge with elapsed and remaining time
    kFlagPlainGauge = 0x008,  // a plain gauge (ignored with kFlagSharkGauge)
    kFlagUnframed = 0x010,    // the table without its frame
    kFlagNoCloseButton = 0x020,
    kFlagNoTitleBar = 0x040,
    kFlagNotResizable = 0x080,
    kFlagNoTable = 0x100,
    kFlagRevealLast = 0x200, // show the last row once built
  };

  // Field types of the two row editors.
  static constexpr int kPlainRowField = 117;
  static constexpr int kHTMLRowField = 104;
  static constexpr char const* kLoggerDiedMsg = "logger_died";

  // One row as shown.
  struct ZO_API LoggedItem : LoggerBase::Item {
    LoggedItem() = default;
    LoggedItem(LoggerBase::Item const& item) : LoggerBase::Item(item) {}

    Colour fg;
    Colour bg;
    Glib::FontDesc font;
    std::uint16_t numDisplayLines = 1;
    // The unwrapped width in pixels; -1 until it is needed to wrap the row.
    int pixelWidth = -1;
    // The wrap width numDisplayLines was found for; -1 when it must be found.
    int linesForWidth = -1;
    // Parsed rows of HTML, shared between copies; null for a plain row.
    std::shared_ptr<std::vector<HTMLParagraph> const> htmlLines;
  };

  struct ZO_API InitArgs : StandardPanel::InitArgs {
    InitArgs(std::uint16_t numRows = 10, std::uint16_t width = 0, unsigned flags = 0);

    Zo::Ptr<iTaskLog> log; // empty: the logger makes its own
    UIString title;
    // Relative to the application's data folder; empty: no saving on close.
    LightweightString<wchar_t> autoSaveFile;
    unsigned flags = 0;
    std::uint16_t numRows = 10;
    std::vector<PushButton::InitArgs> buttons;
    eCoordinateOrigin buttonOrigin = kOriginBottomRight;
    Glob* listener = nullptr; // told kLoggerDiedMsg when the logger goes
  };

  explicit Logger(InitArgs const& args);
  ~Logger() override;
  char const* idstring() const override { return "logger"; }

  // The height of a logger showing `numRows` rows with these flags.
  static int getInitialHeight(std::uint16_t numRows, unsigned flags);

  // LoggerBase: all go to the log.
  void write(LightweightString<wchar_t> const& text, eOutputType type) override;
  void setFilename(LightweightString<wchar_t>) override {}
  void setFilename(LightweightString<wchar_t>, LightweightString<wchar_t>) override {}
  void getFilename(LightweightString<wchar_t>& name) override { name = {}; }
  void setIndentLevel(std::uint16_t level) override;
  void incIndent() override;
  void decIndent() override;

  // Shows another log, with the lines it holds already.
  void setLog(Zo::Ptr<iTaskLog> const& log);
  Zo::Ptr<iTaskLog> const& getLog() const noexcept { return log_; }
  // Replaces every row; the items are single lines.
  void setItems(std::vector<LoggerBase::Item> const& items);
  // A logged line arriving on the user-interface thread: one row per line
  // of its text.
  void addItem(LoggerBase::Item const& item);
  void clear();
  // Shows how far the work has got, 0 to 1, on the gauge, with the time
  // gone or left on a timed one.
  void progress(double fraction);
  void setFastScroll(bool fast) { fastScroll_ = fast; }
  void set_new_title(LightweightString<wchar_t> const& title);
  void setListener(Glob* listener);
  // The font of rows written from now on.
  void setFont(Glib::FontDesc const& font) { font_ = font; }

  void addButtons(std::vector<PushButton::InitArgs> const& buttons, eCoordinateOrigin origin);
  void setButtonActive(unsigned char index, bool active, eRedrawFlag redraw);
  std::vector<PushButton*> const& buttons() const noexcept { return buttons_; }

  // Rows, filler included, and the real ones.
  std::vector<LoggedItem> const& rows() const noexcept { return items_; }
  std::size_t numItems() const noexcept { return numItems_; }
  TableWidget* table() const noexcept { return table_; }
  Gauge* gauge() const noexcept { return gauge_; }
  unsigned flags() const noexcept { return flags_; }
  // The width rows wrap at: the table's less a gap and the scroll bar.
  int wrapWidth() const noexcept { return wrapWidth_; }
  LightweightString<wchar_t> const& titleText() const noexcept { return title_; }
  LightweightString<wchar_t> const& autoSavePath() const noexcept { return autoSavePath_; }
  // The texts a text save writes: one per row, filler rows included.
  std::vector<LightweightString<wchar_t>> rowTexts() const;
  // Saves the rows as text at `path` (a trailing ".txt" in any case
  // becomes one ".txt") and confirms with a small logger holding a link to
  // the file. The path written, or empty when it failed, which a message
  // tells the user, with the reason.
  LightweightString<wchar_t> saveToFile(LightweightString<wchar_t> const& folder,
                                        LightweightString<wchar_t> const& name);
  // Asks where to save (LogSaveChooser), then saves; a file already there
  // is replaced only once the user agrees, and a place that cannot be
  // written is reported in words instead.
  void requestSaveToFile();
  // Sent by the replace question's Yes.
  static constexpr char const* kReplaceSavedLogMsg = "logger_replace_saved";

  // A row as paragraphs, wrapped and drawn one line per row height: its own
  // HTML, or its text as plain words.
  static std::vector<HTMLParagraph> paragraphsOf(LoggedItem const& row);
  // Whether a row may wrap: link rows and dividers stay on one line.
  static bool canWordWrap(LoggedItem const& row);
  // Opens a link as a click on its row does.
  static void visitLink(LoggerBase::HyperLink const& link);

  // The log of a logger that lives, or null: safe from any thread, and the
  // log stays usable however soon after the call the logger goes.
  static Zo::Ptr<iTaskLog> liveLogOf(Logger const* logger);

  // Takes the lines the log holds that are not shown yet.
  void takeNewLines();

  // StandardPanel
  void resize(double width, double height) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  // Ctrl+C copies the current row's text, as it shows: a link's
  // description, an HTML row's words without their markup.
  int handleKeyboardEvent(int key) override;
  void reviewMenu(Event const* event) override;
  // The text a row shows, for copying.
  LightweightString<wchar_t> shownText(std::size_t row) const;

  // iTableAdaptor
  int getSize() override { return static_cast<int>(items_.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override;
  CellData getCellData(XY<int> const& pos, Palette const& palette) override;
  std::uint16_t getRowHeight(unsigned int row) override;
  bool handleMouseClickEvent(XY<int> const& cell, Event const& event) override;

private:
  struct Inbox;

  void makeTable(InitArgs const& args);
  void makeGauge();
  void subscribe();
  void handleProgressSoon(double fraction);
  void addSpaceFor(std::size_t lines);
  void addItemInternal(LoggerBase::Item const& item);
  LoggedItem styled(LoggerBase::Item const& item) const;
  LoggedItem blankRow() const;
  void measure(LoggedItem& row) const;
  // The sum of the text's characters' advances, each measured once.
  double advanceSum(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) const;
  // The user area less the button row: where the table and gauge go.
  Zo::Box<int> rowsArea() const;
  int buttonRowHeight() const;
  int computeWrapWidth() const;
  void showNewRows();
  void layOut();
  void autoSave();
  void saveUnlessInTheWay(LightweightString<wchar_t> const& folder, LightweightString<wchar_t> const& name);

  Zo::Ptr<iTaskLog> log_;
  std::vector<LoggedItem> items_;
  std::size_t numItems_ = 0;
  std::size_t linesTaken_ = 0; // of the log's lines
  TableWidget* table_ = nullptr;
  Gauge* gauge_ = nullptr;
  double startTime_ = 0.0;
  LightweightString<wchar_t> autoSavePath_;
  bool saveOnClose_ = false;
  Glob* listener_ = nullptr;
  IdStamp listenerStamp_;
  std::vector<PushButton*> buttons_;
  LightweightString<wchar_t> title_;
  bool fastScroll_ = true;
  bool showPending_ = false;
  std::vector<Zo::Ptr<Zo::Guard>> guards_;
  Zo::Ptr<Inbox> inbox_;
  unsigned flags_ = 0;
  int wrapWidth_ = 0;
  XY<int> pressPoint_;
  // The save that waits for the user's answer on replacing its file.
  std::pair<LightweightString<wchar_t>, LightweightString<wchar_t>> pendingSave_;
  Glib::FontDesc font_;
  mutable std::vector<std::pair<Glib::FontDesc, std::unordered_map<wchar_t, double>>> advances_;
};
