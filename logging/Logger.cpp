#include <zowidgets/logging/Logger.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/SystemWatchdog.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/values/SharkGauge.h>
#include <zowidgets/logging/LogFiles.h>
#include <zowidgets/logging/LogItemFields.h>
#include <zowidgets/logging/LogLinkMenu.h>
#include <zowidgets/logging/LogSaveChooser.h>
#include <zowidgets/logging/LogTimes.h>
#include <zowidgets/logging/OutfileReporter.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <mutex>
#include <unordered_map>

namespace {

// Kerning and shaping may widen a text a little past its characters'
// advances; never by this much.
constexpr double kShapingAllowance = 1.25;

constexpr ResId kSaveLogTitle = 10550;
constexpr ResId kSavedTitle = 12855;
constexpr ResId kElapsedText = 11414;
constexpr ResId kRemainingText = 11415;

int tableOptions(unsigned flags) { return (flags & Logger::kFlagUnframed) ? 0 : TableWidget::kFramed; }

unsigned standardWidgetsFor(unsigned flags) {
  unsigned widgets = 0;
  if (!(flags & Logger::kFlagNoCloseButton))
    widgets |= StandardPanel::kPoot;
  if (!(flags & Logger::kFlagNoTitleBar))
    widgets |= StandardPanel::kTitle;
  return widgets;
}

std::vector<LightweightString<wchar_t>> splitLines(LightweightString<wchar_t> const& text) {
  std::vector<LightweightString<wchar_t>> lines;
  std::wstring_view rest = text.view();
  for (;;) {
    std::size_t const end = rest.find(L'\n');
    lines.emplace_back(rest.substr(0, end));
    if (end == std::wstring_view::npos)
      return lines;
    rest.remove_prefix(end + 1);
  }
}

// Every live logger with its log. The widget registry is for the
// user-interface thread; writers on other threads ask here.
struct LiveLoggers {
  std::mutex lock;
  std::unordered_map<Logger const*, Zo::Ptr<iTaskLog>> logs;
};

LiveLoggers& liveLoggers() {
  static LiveLoggers instance;
  return instance;
}

void setLiveLog(Logger const* logger, Zo::Ptr<iTaskLog> const& log) {
  std::lock_guard hold(liveLoggers().lock);
  if (log)
    liveLoggers().logs[logger] = log;
  else
    liveLoggers().logs.erase(logger);
}

} // namespace

// Stands between the log's writers and the panel. A writer on another
// thread only sets a flag and, when it was clear, queues one call that takes
// every waiting line: however many lines a burst holds, it costs one
// refresh. The call reaches the panel only while it lives.
struct Logger::Inbox : iCallbackBase<int, iTaskLog::Event> {
  Inbox(Logger* logger) : logger(logger), stamp(EventHandler::stampOf(logger)) {}

  int execute(iTaskLog::Event const& event) override {
    if (event.kind == iTaskLog::kNewItem)
      linesArrived();
    else if (event.kind == iTaskLog::kProgress)
      progressArrived(event.progress);
    return 1;
  }

  bool alive() const { return EventHandler::valid(logger, stamp); }

  void linesArrived() {
    if (co_pid() == 0) {
      if (alive())
        logger->takeNewLines();
      return;
    }
    if (linesPending.exchange(true))
      return;
    Zo::Ptr<Inbox> self(this);
    defer([self] {
      self->linesPending.store(false);
      if (self->alive())
        self->logger->takeNewLines();
    });
  }

  void progressArrived(double fraction) {
    latestProgress.store(fraction);
    if (co_pid() == 0) {
      if (alive())
        logger->progress(fraction);
      return;
    }
    if (progressPending.exchange(true))
      return;
    Zo::Ptr<Inbox> self(this);
    defer([self] {
      self->progressPending.store(false);
      if (self->alive())
        self->logger->progress(self->latestProgress.load());
    });
  }

  Logger* logger;
  IdStamp stamp;
  std::atomic<bool> linesPending{false};
  std::atomic<bool> progressPending{false};
  std::atomic<double> latestProgress{0.0};
};

Logger::InitArgs::InitArgs(std::uint16_t numRows, std::uint16_t width, unsigned flags)
    : flags(flags), numRows(numRows) {
  size = XY<int>(width != 0 ? width : 30 * UifStd::getRowHeight(), getInitialHeight(numRows, flags));
  border = StandardPanel::getDefaultBorder();
  hasBorder = true;
}

int Logger::getInitialHeight(std::uint16_t numRows, unsigned flags) {
  int height = numRows == 0 ? 0 : TableWidget::calcHeight(numRows, tableOptions(flags));
  if (flags & kFlagSharkGauge) {
    if (height != 0)
      height += 2 * UifStd::getWidgetGap();
    height += SharkGauge::calcHeight();
  } else if (flags & kFlagPlainGauge) {
    if (height != 0)
      height += 2 * UifStd::getWidgetGap();
    height += UifStd::getRowGap() * 2;
  }
  return StandardPanel::calcPanelSize(XY<int>(0, height), standardWidgetsFor(flags), StandardPanel::getDefaultBorder())
      .y;
}

Logger::Logger(InitArgs const& args) : StandardPanel(args), flags_(args.flags) {
  Drawable::Suspender hold;
  title_ = args.title.getString();
  font_ = UifStd::getFont();
  addStandardWidgets(standardWidgetsFor(flags_));
  setTitle(args.title, UifStd::getTitleFont(), kNoRedraw);
  // A title still names the window to the desktop, but draws no bar when
  // the flags say none.
  if (flags_ & kFlagNoTitleBar)
    removeStandardWidgets(StandardPanel::kTitle);
  setResizable(!(flags_ & kFlagNotResizable));
  setMinSize(XY<int>(width(), std::min(height(), 10 * UifStd::getRowHeight())));
  if (!args.autoSaveFile.empty()) {
    autoSavePath_ = joinPaths(OS().appDataFolder(), args.autoSaveFile);
    saveOnClose_ = true;
  }
  setListener(args.listener);
  if (!args.buttons.empty())
    addButtons(args.buttons, args.buttonOrigin);
  if (!(flags_ & kFlagNoTable))
    makeTable(args);
  if (flags_ & (kFlagSharkGauge | kFlagPlainGauge))
    makeGauge();
  setLog(args.log);
  resize(width(), height());
  if ((flags_ & kFlagRevealLast) && table_ && numItems_ > 0)
    table_->setCurPos(XY<int>(0, static_cast<int>(numItems_) - 1), TableWidget::kShowCell | TableWidget::kQuiet);
}

Logger::~Logger() {
  setLiveLog(this, {});
  guards_.clear();
  if (saveOnClose_) {
    // Lines written before the close are kept, even those not shown yet.
    takeNewLines();
    if (!OS().fileExists(getPath(autoSavePath_)))
      OS().createFolder(getPath(autoSavePath_));
    LogFiles::saveText(rowTexts(), autoSavePath_);
  }
  if (listener_ && EventHandler::valid(listener_, listenerStamp_) && is_good_glob_ptr(listener_))
    Glob::sendMsg(listener_, kLoggerDiedMsg, this);
}

void Logger::setListener(Glob* listener) {
  listener_ = listener;
  listenerStamp_ = listener ? EventHandler::stampOf(listener) : IdStamp();
}

void Logger::makeTable(InitArgs const& args) {
  TableWidget::InitArgs tableArgs(GlobCreationInfo(
      XY<int>(rowsArea().width(), TableWidget::calcHeight(std::max<int>(args.numRows, 1), tableOptions(flags_)))));
  tableArgs.adaptor = this;
  tableArgs.options = tableOptions(flags_);
  table_ = createWidget<TableWidget>(tableArgs, Glob::UserTopLeft(0, 0));
  table_->hideTextEntryBox(true);
  table_->setHighlightCurrentRow(false);
  table_->registerEditor(kPlainRowField, std::make_unique<LogItemField>(this));
  table_->registerEditor(kHTMLRowField, std::make_unique<LogItemHTMLField>(this));
}

void Logger::makeGauge() {
  Zo::Box<int> const area = rowsArea();
  Gauge::InitArgs gaugeArgs;
  if (flags_ & kFlagSharkGauge) {
    gaugeArgs.size = XY<int>(area.width(), SharkGauge::calcHeight());
    gaugeArgs.textColour = getPalette().text(0);
    gauge_ = createWidget<SharkGauge>(gaugeArgs, Glob::UserBottomLeft(0, buttonRowHeight()));
  } else {
    gaugeArgs.size = XY<int>(area.width(), 2 * UifStd::getRowGap());
    gaugeArgs.barColour = getPalette().subheadingText();
    gaugeArgs.backgroundColour = getPalette().text(1);
    gauge_ = createWidget<Gauge>(gaugeArgs, Glob::UserBottomLeft(0, buttonRowHeight()));
  }
}

int Logger::buttonRowHeight() const {
  if (buttons_.empty())
    return 0;
  return buttons_.front()->height() + UifStd::getRowGap();
}

Zo::Box<int> Logger::rowsArea() const {
  Zo::Box<int> area = StandardPanel::getUserArea();
  area.y0 = std::min(area.y1, area.y0 + buttonRowHeight());
  return area;
}

int Logger::computeWrapWidth() const { return rowsArea().width() - UifStd::getWidgetGap() - ScrollBar::thickness(); }

void Logger::write(LightweightString<wchar_t> const& text, eOutputType type) { log_->write(text, type); }
void Logger::setIndentLevel(std::uint16_t level) { log_->setIndentLevel(level); }
void Logger::incIndent() { log_->incIndent(); }
void Logger::decIndent() { log_->decIndent(); }

void Logger::setLog(Zo::Ptr<iTaskLog> const& log) {
  if (log && log == log_)
    return;
  if (log_) {
    clear();
    guards_.clear();
  }
  log_ = log ? log : Zo::Ptr<iTaskLog>(new TaskLog);
  setLiveLog(this, log_);
  std::vector<LoggerBase::Item> const history = log_->getItems();
  linesTaken_ = history.size();
  setItems(history);
  if (gauge_)
    gauge_->setMeasure(0.0);
  if ((flags_ & (kFlagNoTable | kFlagSharkGauge | kFlagPlainGauge)) == kFlagNoTable)
    return;
  subscribe();
  // Lines written between the copy and the subscription.
  takeNewLines();
}

Zo::Ptr<iTaskLog> Logger::liveLogOf(Logger const* logger) {
  std::lock_guard hold(liveLoggers().lock);
  auto const found = liveLoggers().logs.find(logger);
  return found == liveLoggers().logs.end() ? Zo::Ptr<iTaskLog>() : found->second;
}

void Logger::subscribe() {
  inbox_ = Zo::Ptr<Inbox>(new Inbox(this));
  guards_.push_back(log_->addListener(Zo::Ptr<iTaskLog::Listener>(inbox_.get())));
}

void Logger::takeNewLines() {
  std::vector<LoggerBase::Item> fresh;
  linesTaken_ += log_->copyItems(linesTaken_, fresh);
  if (fresh.empty())
    return;
  for (auto const& item : fresh)
    addItem(item);
  // The rows are there at once; the table hears of them once per burst,
  // however many writes the burst held.
  if (table_ && !showPending_) {
    showPending_ = true;
    IdStamp const stamp = EventHandler::stampOf(this);
    defer([this, stamp] {
      if (!EventHandler::valid(this, stamp))
        return;
      showPending_ = false;
      Drawable::Suspender hold;
      showNewRows();
    });
  }
}

void Logger::showNewRows() {
  if (!table_)
    return;
  table_->refresh();
  if (numItems_ == 0)
    return;
  int flags = TableWidget::kShowCell | TableWidget::kQuiet;
  if (static_cast<int>(items_.size()) >= table_->numLines())
    flags |= TableWidget::kRowAtBottom;
  table_->setCurPos(XY<int>(0, static_cast<int>(items_.size()) - 1), flags);
}

void Logger::setItems(std::vector<LoggerBase::Item> const& items) {
  clear();
  items_.reserve(items.size());
  for (auto const& item : items)
    addItemInternal(item);
  if (table_)
    table_->refresh();
}

void Logger::addItem(LoggerBase::Item const& item) {
  std::vector<LightweightString<wchar_t>> const lines = splitLines(item.text);
  addSpaceFor(lines.size());
  for (auto const& line : lines)
    addItemInternal(LoggerBase::Item(line, item.type, item.indent));
}

void Logger::clear() {
  if (table_)
    table_->registerEditor(kHTMLRowField, std::make_unique<LogItemHTMLField>(this));
  items_.clear();
  numItems_ = 0;
  if (table_)
    table_->refresh();
}

void Logger::addSpaceFor(std::size_t lines) {
  if (items_.capacity() == items_.size())
    items_.reserve(items_.size() + std::max<std::size_t>(lines, 256));
  if (table_) {
    std::size_t step = 1;
    int const page = table_->numLines();
    bool grow = true;
    if (fastScroll_ && page > 1) {
      step = static_cast<std::size_t>(page / 2);
      grow = numItems_ % step == 0;
    }
    if (grow && items_.size() < numItems_ + step)
      items_.resize(numItems_ + step, blankRow());
  }
  if (items_.size() < numItems_ + lines)
    items_.resize(numItems_ + lines, blankRow());
}

Logger::LoggedItem Logger::blankRow() const {
  LoggedItem row;
  row.fg = getPalette().text(0);
  row.bg = getPalette().window();
  return row;
}

Logger::LoggedItem Logger::styled(LoggerBase::Item const& item) const {
  Palette const& palette = getPalette();
  LoggedItem row(item);
  row.fg = palette.text(0);
  row.bg = palette.window();
  row.font = font_;
  switch (item.type) {
  case kOutputWarning:
    row.fg = Colour(1.0, 0.7, 0.0);
    break;
  case kOutputDim:
    row.fg = palette.text(2);
    break;
  case kOutputError:
    row.fg = palette.warning();
    break;
  case kOutputStatusLine:
  case kOutputSubheading:
  case kOutputDivider:
    row.fg = palette.subheadingText();
    row.font = UifStd::getSubheadingFont();
    break;
  case kOutputSuccess:
    row.fg = palette.success();
    break;
  default:
    break;
  }
  if (!item.text.empty() && item.type != kOutputHyperLink && HTMLRenderer::isHTML(item.text.view())) {
    Palette rowPalette = palette;
    rowPalette.setText(row.fg);
    row.htmlLines =
        std::make_shared<std::vector<HTMLParagraph> const>(HTMLRenderer::parse(item.text.view(), rowPalette));
  }
  return row;
}

void Logger::addItemInternal(LoggerBase::Item const& item) {
  if (numItems_ == 0 && item.text.empty())
    return;
  auto place = [this](LoggedItem const& row) {
    if (items_.size() <= numItems_)
      items_.resize(numItems_ + 1, blankRow());
    items_[numItems_++] = row;
  };
  if (item.type == kOutputStatusLine && numItems_ != 0) {
    LoggedItem blank = styled(LoggerBase::Item(L" ", kOutputPlain, 0));
    blank.fg = getPalette().subheadingText();
    blank.font = UifStd::getSubheadingFont();
    place(blank);
  }
  place(styled(item));
}

bool Logger::canWordWrap(LoggedItem const& row) { return row.type != kOutputHyperLink && row.type != kOutputDivider; }

void Logger::measure(LoggedItem& row) const {
  row.numDisplayLines = 1;
  row.linesForWidth = wrapWidth_;
  int const available = wrapWidth_ - row.indent * UifStd::getRowHeight();
  if (row.text.empty() || !canWordWrap(row) || available <= 0)
    return;
  // A text whose characters' advances, with room for shaping, add up to
  // less than the width is known to fit without laying it out: a stream of
  // short lines costs a layout per new character, not per line.
  if (!row.htmlLines && row.pixelWidth < 0 && kShapingAllowance * advanceSum(row.text, row.font) < available)
    return;
  if (row.pixelWidth < 0) {
    double const width = row.htmlLines ? HTMLRenderer::calcMaxWidth(*row.htmlLines, row.font)
                                       : Glib::TextDescription::calcBounds(row.text, row.font).width();
    row.pixelWidth = static_cast<int>(std::ceil(width));
  }
  if (available >= row.pixelWidth)
    return;
  int const lines = HTMLRenderer::calcNumDisplayLines(paragraphsOf(row), available, row.font);
  row.numDisplayLines = static_cast<std::uint16_t>(std::max(1, lines));
}

std::vector<HTMLParagraph> Logger::paragraphsOf(LoggedItem const& row) {
  if (row.htmlLines)
    return *row.htmlLines;
  Palette palette = UifStd::getColourScheme();
  palette.setText(row.fg);
  return HTMLRenderer::parse(HTMLRenderer::convertToHTML(row.text.view(), HTMLRenderer::kEscapeMarkup).view(), palette);
}

double Logger::advanceSum(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) const {
  auto found = std::find_if(advances_.begin(), advances_.end(), [&](auto const& known) { return known.first == font; });
  if (found == advances_.end())
    found = advances_.insert(advances_.end(), {font, {}});
  auto& advances = found->second;
  double sum = 0.0;
  for (wchar_t c : text.view()) {
    auto [at, added] = advances.try_emplace(c, 0.0);
    if (added)
      at->second = Glib::TextDescription::calcBounds(LightweightString<wchar_t>(&c, 1), font).width();
    sum += at->second;
  }
  return sum;
}

std::vector<LightweightString<wchar_t>> Logger::rowTexts() const {
  std::vector<LightweightString<wchar_t>> texts;
  texts.reserve(items_.size());
  for (auto const& row : items_)
    texts.push_back(row.text);
  return texts;
}

void Logger::progress(double fraction) {
  if (gauge_) {
    if (flags_ & kFlagSharkGauge) {
      LightweightString<wchar_t> label;
      if (LogTimes::tolerantEq(fraction, 0.0) || startTime_ == 0.0) {
        startTime_ = msecsNow();
      } else {
        double const elapsed = msecsNow() - startTime_;
        if (LogTimes::tolerantEq(fraction, 1.0))
          label = LogTimes::timeText(kElapsedText, LogTimes::elapsedSeconds(elapsed));
        else
          label = LogTimes::timeText(kRemainingText, LogTimes::remainingSeconds(elapsed, fraction));
      }
      gauge_->setLabel(UIString(label));
    }
    gauge_->setMeasure(fraction);
    gauge_->display();
  }
  SystemWatchdog::heartbeat();
}

void Logger::set_new_title(LightweightString<wchar_t> const& title) {
  title_ = title;
  StandardPanel::setTitle(UIString(title), UifStd::getTitleFont(), kRedrawNow);
}

void Logger::addButtons(std::vector<PushButton::InitArgs> const& buttons, eCoordinateOrigin origin) {
  bool const leftToRight = origin == kOriginLeft;
  PushButton* previous = nullptr;
  for (auto const& args : buttons) {
    PushButton::InitArgs made = args;
    made.setParent(this);
    WidgetPosition const position = previous ? (leftToRight ? Glob::RightOf(UifStd::getWidgetGap(), previous)
                                                            : Glob::LeftOf(UifStd::getWidgetGap(), previous))
                                             : (leftToRight ? Glob::UserBottomLeft(0, 0) : Glob::UserBottomRight(0, 0));
    previous = createWidget<PushButton>(made, position);
    buttons_.push_back(previous);
  }
  layOut();
}

void Logger::setButtonActive(unsigned char index, bool active, eRedrawFlag redraw) {
  if (index >= buttons_.size())
    return;
  buttons_[index]->setActive(active, redraw);
}

void Logger::layOut() {
  Zo::Box<int> const area = rowsArea();
  int tableHeight = area.height();
  if (gauge_) {
    gauge_->resize(area.width(), gauge_->height());
    gauge_->setWidgetDetails(Glob::UserBottomLeft(0, buttonRowHeight()), {});
    tableHeight -= gauge_->height() + 2 * UifStd::getWidgetGap();
  }
  if (table_)
    table_->resize(area.width(), std::max(0, tableHeight));
}

void Logger::resize(double width, double height) {
  StandardPanel::resize(width, height);
  wrapWidth_ = computeWrapWidth();
  for (auto& row : items_)
    row.linesForWidth = -1;
  layOut();
  if (table_)
    table_->refresh();
}

LightweightString<wchar_t> Logger::saveToFile(LightweightString<wchar_t> const& folder,
                                              LightweightString<wchar_t> const& name) {
  takeNewLines();
  LightweightString<wchar_t> const path = LogFiles::textPath(folder, name);
  if (!LogFiles::saveText(rowTexts(), path)) {
    int const error = errno;
    makeMessage(UIString(L"Could not save " + path + L": " +
                         LightweightString<wchar_t>::fromUTF8(std::strerror(error)) + L"."));
    return {};
  }
  // The confirmation holds the path as a link, so the user can open it.
  Zo::Ptr<iTaskLog> note(new TaskLog);
  note->write(path, kOutputHyperLink);
  InitArgs args(1, 0, 0);
  args.log = note;
  args.title = UIString(resourceStrW(kSavedTitle));
  int const pathWidth =
      static_cast<int>(std::ceil(Glib::TextDescription::calcBounds(path, UifStd::getFont()).width())) +
      2 * TableColumnDescription::textMargin() + ScrollBar::thickness() + UifStd::getWidgetGap();
  args.size.x = std::max(args.size.x, StandardPanel::calcPanelSize(XY<int>(pathWidth, 0),
                                                                   StandardPanel::kPoot | StandardPanel::kTitle,
                                                                   StandardPanel::getDefaultBorder())
                                          .x);
  // Room for the table's own border round its one row, which was cut in
  // half without it.
  args.size.y += StandardPanel::calcPanelSize(XY<int>(), 0, StandardPanel::getDefaultBorder()).y;
  Drawable::Suspender hold;
  // Over the middle of this log, where the user is looking.
  Zo::Box<int> const shown = canvas() ? canvas()->screenBox() : Zo::Box<int>();
  XY<int> const centred((shown.x0 + shown.x1 - args.size.x) / 2, (shown.y0 + shown.y1 - args.size.y) / 2);
  Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(canvas(), args.size, centred));
  auto* confirmation = new Logger(args);
  GlobManager::realize(confirmation);
  GlobManager::addModalGlob(confirmation);
  return path;
}

void Logger::saveUnlessInTheWay(LightweightString<wchar_t> const& folder, LightweightString<wchar_t> const& name) {
  LightweightString<wchar_t> const path = LogFiles::textPath(folder, name);
  outfile_reporter const report(path, false, this, kReplaceSavedLogMsg);
  if (report.getCode() == kOutfileUsable)
    saveToFile(folder, name);
  else if (report.getCode() == kOutfileExists)
    pendingSave_ = {folder, name};
}

void Logger::requestSaveToFile() {
  IdStamp const stamp = EventHandler::stampOf(this);
  LogSaveChooser::chooseName(
      this, UIString(resourceStrW(kSaveLogTitle)), title_,
      [this, stamp](LightweightString<wchar_t> const& folder, LightweightString<wchar_t> const& name) {
        if (EventHandler::valid(this, stamp) && !folder.empty())
          saveUnlessInTheWay(folder, name);
      });
}

LightweightString<wchar_t> Logger::shownText(std::size_t row) const {
  if (row >= items_.size())
    return {};
  LoggedItem const& item = items_[row];
  if (item.type == kOutputHyperLink)
    return HyperLink::fromString(item.text).getDescription();
  return item.htmlLines ? HTMLRenderer::visibleText(*item.htmlLines) : item.text;
}

int Logger::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  int const row = table_ ? table_->getCurPos().y : -1;
  bool const onRow = row >= 0 && static_cast<std::size_t>(row) < numItems_;
  if ((bare == 'c' || bare == 'C') && (key & kKeyModifierMask) == kKeyCtrl && onRow) {
    OS().setClipboardText(shownText(static_cast<std::size_t>(row)));
    return 1;
  }
  // Return follows a link as a click does, for those who read by keys.
  if (key == kKeyReturn && onRow && table_->hasKbdFocus() &&
      items_[static_cast<std::size_t>(row)].type == kOutputHyperLink) {
    visitLink(HyperLink::fromString(items_[static_cast<std::size_t>(row)].text));
    return 1;
  }
  return StandardPanel::handleKeyboardEvent(key);
}

int Logger::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message.startsWith(HTMLStringEditor::kLinkClickedMsg)) {
    std::size_t const equals = message.find('=');
    if (equals != LightweightString<char>::npos)
      visitLink(HyperLink::fromString(LightweightString<wchar_t>::fromUTF8(message.view().substr(equals + 1))));
    return 1;
  }
  if (message == kReplaceSavedLogMsg) {
    if (!pendingSave_.first.empty())
      saveToFile(pendingSave_.first, pendingSave_.second);
    pendingSave_ = {};
    return 1;
  }
  return StandardPanel::handleMessageEvent(message, sender);
}

std::vector<TableColumnDescription> Logger::getColumnDefinitions() {
  TableColumnDescription column;
  column.setResizeable(true);
  column.setWidth(0);
  return {column};
}

iTableAdaptor::CellData Logger::getCellData(XY<int> const& pos, Palette const& palette) {
  CellData data;
  data.palette = palette;
  data.readOnly = true;
  if (pos.y < 0 || static_cast<std::size_t>(pos.y) >= items_.size())
    return data;
  LoggedItem const& row = items_[static_cast<std::size_t>(pos.y)];
  data.palette.setText(row.fg);
  data.fieldType = row.htmlLines ? kHTMLRowField : kPlainRowField;
  data.font = row.font;
  data.text = UIString(row.type == kOutputHyperLink ? HyperLink::fromString(row.text).getDescription() : row.text);
  return data;
}

std::uint16_t Logger::getRowHeight(unsigned int row) {
  if (row >= items_.size())
    return 0;
  LoggedItem& item = items_[row];
  if (item.linesForWidth != wrapWidth_)
    measure(item);
  return static_cast<std::uint16_t>(item.numDisplayLines * UifStd::getRowHeight());
}

bool Logger::handleMouseClickEvent(XY<int> const& cell, Event const& event) {
  if (cell.y < 0 || static_cast<std::size_t>(cell.y) >= numItems_)
    return false;
  LoggedItem const& row = items_[static_cast<std::size_t>(cell.y)];
  if (row.type != kOutputHyperLink)
    return false;
  HyperLink const link = HyperLink::fromString(row.text);
  if (link.empty() || link.targets().front().find(L'|') != LightweightString<wchar_t>::npos)
    return false;
  if (event.type == Event::kMouseDown) {
    pressPoint_ = event.screenPosition;
    return false;
  }
  if (event.type != Event::kMouseMove || !(event.buttons & kMouseLeft))
    return false;
  double const dx = event.screenPosition.x - pressPoint_.x;
  double const dy = event.screenPosition.y - pressPoint_.y;
  if (std::lround(std::pow(dx * dx + dy * dy, 0.5)) < UifStd::getWidgetGap())
    return false;
  // The rest of the drag is the desktop's: the row must not start it again
  // at every move.
  mouse_canvas_connect(nullptr);
  Glib::dragFilesToOS(link.targets());
  return true;
}

void Logger::visitLink(HyperLink const& link) { LogItemField::visitLink(link); }

void Logger::reviewMenu(Event const* event) {
  clearMenu();
  setMenuTitle(UIString(title_));
  if (event && table_) {
    XY<int> const inTable(event->position.x - table_->getX(), event->position.y - table_->getY());
    XY<int> const cell = table_->cellAt(inTable);
    if (cell.y >= 0 && static_cast<std::size_t>(cell.y) < numItems_ &&
        items_[static_cast<std::size_t>(cell.y)].type == kOutputHyperLink) {
      HyperLink const link = HyperLink::fromString(items_[static_cast<std::size_t>(cell.y)].text);
      if (!link.isInternal() && !link.empty()) {
        setMenuTitle(UIString(stripPath(link.getDescription())));
        for (auto const& entry : LogLinkMenu::entriesFor(link))
          addMenuItem(entry);
      }
    }
  }
  if (heldMenuItems().empty())
    addMenuItem(UIString(ellipsisResourceStrW(kSaveLogTitle)), [this](MenuItem const&) {
      IdStamp const stamp = EventHandler::stampOf(this);
      defer([this, stamp] {
        if (EventHandler::valid(this, stamp))
          requestSaveToFile();
      });
    });
}
