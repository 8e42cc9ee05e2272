#include "LoggerTestSupport.h"

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/widgets/values/Gauge.h>

#include <algorithm>

namespace {

using LoggerPanel = LoggerTest;
using Kind = Zo::ShellRequest::Kind;

// The centre of a row's cell on the screen.
XY<int> rowOnScreen(Logger const& logger, int row) {
  Zo::Box<int> const box = logger.table()->getCellBox(XY<int>(0, row));
  return logger.table()->screenPosition() + XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2);
}

// A row's centre in the logger's own coordinates.
XY<int> rowInLogger(Logger const& logger, int row) {
  Zo::Box<int> const box = logger.table()->getCellBox(XY<int>(0, row));
  return XY<int>(logger.table()->getX() + (box.x0 + box.x1) / 2, logger.table()->getY() + (box.y0 + box.y1) / 2);
}

LightweightString<wchar_t> linkTo(std::vector<LightweightString<wchar_t>> targets,
                                  LightweightString<wchar_t> text = {}) {
  return LoggerBase::HyperLink(text, std::move(targets)).toString();
}

std::vector<std::wstring> menuTexts(Logger& logger) {
  std::vector<std::wstring> texts;
  for (auto const& item : logger.heldMenuItems())
    texts.push_back(item.text.getString().str());
  return texts;
}

TEST_F(LoggerPanel, AnHTMLRowThatWrapsToThreeLinesIsThreeRowsTallAndIsRemeasuredAfterNarrowing) {
  Logger* logger = openLogger(0, 10, 400);
  std::wstring html = L"<b>Shot</b>";
  while (HTMLRenderer::calcNumDisplayLines(HTMLRenderer::parse(html, logger->getPalette()), logger->wrapWidth(),
                                           UifStd::getFont()) < 3)
    html += L" rendered";
  loggerWrite(logger, LightweightString<wchar_t>(html), LoggerBase::kOutputPlain);
  pump();
  ASSERT_TRUE(logger->rows()[0].htmlLines);
  EXPECT_EQ(logger->getRowHeight(0), 3 * UifStd::getRowHeight());

  logger->resize(logger->width() - 150, logger->height());
  int const narrower =
      HTMLRenderer::calcNumDisplayLines(*logger->rows()[0].htmlLines, logger->wrapWidth(), UifStd::getFont());
  EXPECT_GT(narrower, 3);
  EXPECT_EQ(logger->getRowHeight(0), narrower * UifStd::getRowHeight());
}

TEST_F(LoggerPanel, CtrlCCopiesTheClickedRowsTextAsItShows) {
  Logger* logger = openLogger();
  loggerWrite(logger, L"Render started", LoggerBase::kOutputPlain);
  loggerWrite(logger, L"<b>Shot 4</b> rendered", LoggerBase::kOutputPlain);
  loggerWrite(logger, linkTo({L"/renders/final.mov"}, L"final.mov"), LoggerBase::kOutputHyperLink);
  pump();
  auto copyRow = [&](int row) {
    OS().setClipboardText(L"");
    HeadlessInput::click(rowOnScreen(*logger, row));
    pump();
    HeadlessInput::key('c', kKeyCtrl);
    return OS().clipboardText().str();
  };
  EXPECT_EQ(copyRow(0), L"Render started");
  EXPECT_EQ(copyRow(1), L"Shot 4 rendered") << "the words, not the markup";
  EXPECT_EQ(copyRow(2), L"final.mov") << "a link as it shows";
}

TEST_F(LoggerPanel, PageKeysHomeAndEndMoveThroughALongLog) {
  Logger* logger = openLogger();
  for (int i = 0; i < 200; ++i)
    loggerWrite(logger, L"Frame " + LightweightString<wchar_t>(std::to_wstring(i)), LoggerBase::kOutputPlain);
  pump();
  TableWidget* table = logger->table();
  HeadlessInput::click(rowOnScreen(*logger, table->getFirstVisibleIndex()));
  pump();
  ASSERT_TRUE(table->hasKbdFocus());
  int const row = table->getCurPos().y;
  HeadlessInput::key(kKeyPageDown);
  pump();
  EXPECT_GT(table->getCurPos().y, row + 1) << "a page on";
  HeadlessInput::key(kKeyEnd);
  pump();
  EXPECT_EQ(table->getCurPos().y, table->rowCount() - 1) << "a log of one column: End is its last line";
  EXPECT_GE(table->getFirstVisibleIndex(), table->rowCount() - 30) << "and shows it";
  HeadlessInput::key(kKeyHome);
  pump();
  EXPECT_EQ(table->getCurPos().y, 0);
  EXPECT_EQ(table->getFirstVisibleIndex(), 0);
}

TEST_F(LoggerPanel, WithTheKeysOnTheLogItsCurrentRowShowsAndReturnFollowsALink) {
  Logger* logger = openLogger();
  loggerWrite(logger, L"Render started", LoggerBase::kOutputPlain);
  loggerWrite(logger, linkTo({L"/renders/final.mov"}, L"final.mov"), LoggerBase::kOutputHyperLink);
  loggerWrite(logger, L"Render finished", LoggerBase::kOutputPlain);
  pump();
  TableWidget* table = logger->table();
  Zo::Image::Surface const unfocused = HeadlessScreen::windowShot(*logger);
  ASSERT_TRUE(set_kbd_focus(table));
  pump();
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(HeadlessScreen::windowShot(*logger), unfocused), 30)
      << "the current line shows while the keys are on the log";
  int link = -1;
  for (int row = 0; row < table->rowCount(); ++row)
    if (logger->shownText(static_cast<std::size_t>(row)).str() == L"final.mov")
      link = row;
  ASSERT_GE(link, 0);
  while (table->getCurPos().y > link)
    HeadlessInput::key(kKeyUp);
  OS().clearRecordedShellRequests();
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(OS().recordedShellRequests().size(), 1u) << "the link's file is shown, as a click on it does";
  set_kbd_focus(nullptr);
  pump();
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(HeadlessScreen::windowShot(*logger), unfocused), 0)
      << "without the keys the log shows no current line";
}

TEST_F(LoggerPanel, APlainRowWrapsAndIsDrawnOverItsLines) {
  Logger* logger = openLogger(0, 10, 300);
  std::wstring text = L"Frame";
  while (Glib::TextDescription::calcBounds(text, UifStd::getFont()).width() < 2.5 * logger->wrapWidth())
    text += L" rendered";
  loggerWrite(logger, LightweightString<wchar_t>(text), LoggerBase::kOutputPlain);
  pump();
  EXPECT_EQ(logger->getRowHeight(0), 3 * UifStd::getRowHeight());
}

TEST_F(LoggerPanel, AStreamOfShortLinesLaysOutATextPerNewCharacterNotPerLine) {
  Logger* logger = openLogger(0, 10, 500);
  for (int i = 0; i < 1000; ++i)
    logger_write(logger, "frame %d", i);
  std::size_t const before = Glib::TextLayout::layoutsMade();
  for (unsigned row = 0; row < 1000; ++row)
    EXPECT_EQ(logger->getRowHeight(row), UifStd::getRowHeight());
  // "frame ", the digits: at most one layout for each character.
  EXPECT_LE(Glib::TextLayout::layoutsMade() - before, 16u);
}

TEST_F(LoggerPanel, ALongLinkRowStaysOneLineHighAtAnyWidth) {
  Logger* logger = openLogger(0, 10, 300);
  std::wstring path = L"/media/projects";
  while (Glib::TextDescription::calcBounds(path, UifStd::getFont()).width() < 3 * logger->wrapWidth())
    path += L"/a folder with a long name";
  loggerWrite(logger, linkTo({LightweightString<wchar_t>(path + L"/final.mov")}), LoggerBase::kOutputHyperLink);
  pump();
  EXPECT_EQ(logger->getRowHeight(0), UifStd::getRowHeight());
  logger->resize(logger->width() - 100, logger->height());
  EXPECT_EQ(logger->getRowHeight(0), UifStd::getRowHeight());
}

TEST_F(LoggerPanel, ClickingALinkToHTMLOrEDLInAnyCaseOpensItAndAnyOtherFileIsRevealed) {
  Logger* logger = openLogger(0, 10, 500);
  loggerWrite(logger, linkTo({L"/renders/report.HTML"}), LoggerBase::kOutputHyperLink);
  loggerWrite(logger, linkTo({L"/renders/cut.Edl"}), LoggerBase::kOutputHyperLink);
  loggerWrite(logger, linkTo({L"/renders/final.mov", L"/renders/final.wav"}, L"Final render"),
              LoggerBase::kOutputHyperLink);
  loggerWrite(logger, linkTo({L"HTTPS://example.org/help"}), LoggerBase::kOutputHyperLink);
  pump();
  for (int row = 0; row < 4; ++row) {
    HeadlessInput::click(rowOnScreen(*logger, row));
    pump();
  }
  std::vector<Zo::ShellRequest> const expected{
      {Kind::open, {L"/renders/report.HTML"}},
      {Kind::open, {L"/renders/cut.Edl"}},
      {Kind::reveal, {L"/renders/final.mov", L"/renders/final.wav"}},
      {Kind::open, {L"HTTPS://example.org/help"}},
  };
  EXPECT_EQ(OS().recordedShellRequests(), expected);
}

TEST_F(LoggerPanel, ALinkRowShowsItsDescription) {
  Logger* logger = openLogger();
  loggerWrite(logger, linkTo({L"/renders/final.mov"}, L"Final render"), LoggerBase::kOutputHyperLink);
  auto const cell = logger->getCellData(XY<int>(0, 0), logger->getPalette());
  EXPECT_EQ(cell.text.getString(), L"Final render");
  EXPECT_EQ(cell.fieldType, Logger::kPlainRowField);
}

TEST_F(LoggerPanel, TheMenuOverAnOrdinaryRowOffersOnlySaving) {
  Logger* logger = openLogger(0, 10, 500);
  logger_write(logger, "frame 1");
  pump();
  Event click;
  click.type = Event::kMouseDown;
  click.buttons = kMouseRight;
  click.position = rowInLogger(*logger, 0);
  logger->reviewMenu(&click);
  EXPECT_EQ(menuTexts(*logger), (std::vector<std::wstring>{L"Save log\u2026"}));
}

TEST_F(LoggerPanel, TheMenuOverALinkRowOffersOnlyTheThreeLinkEntries) {
  Logger* logger = openLogger(0, 10, 500);
  loggerWrite(logger, linkTo({L"/renders/final.mov", L"/renders/final.wav"}), LoggerBase::kOutputHyperLink);
  pump();
  Event click;
  click.type = Event::kMouseDown;
  click.buttons = kMouseRight;
  click.position = rowInLogger(*logger, 0);
  logger->reviewMenu(&click);
  ASSERT_EQ(menuTexts(*logger), (std::vector<std::wstring>{L"Copy", L"Open", L"Show in folder"}));
  EXPECT_EQ(logger->getMenuTitle().getString(), L"final.mov");

  auto const items = logger->heldMenuItems();
  items[0].action(items[0]);
  EXPECT_EQ(OS().clipboardText(), L"/renders/final.mov\n/renders/final.wav");
  items[1].action(items[1]);
  items[2].action(items[2]);
  std::vector<Zo::ShellRequest> const expected{
      {Kind::open, {L"/renders/final.mov"}},
      {Kind::reveal, {L"/renders/final.mov", L"/renders/final.wav"}},
  };
  EXPECT_EQ(OS().recordedShellRequests(), expected);
}

TEST_F(LoggerPanel, SavingFromTheMenuWritesTheRowsAsText) {
  Logger* logger = openLogger(0, 10, 500);
  logger_write(logger, "frame 1");
  logger->reviewMenu(nullptr);
  auto const items = logger->heldMenuItems();
  ASSERT_EQ(items.size(), 1u);
  items[0].action(items[0]);
  pump();
  ASSERT_TRUE(std::filesystem::exists(folder / "Render log.txt"));
  EXPECT_EQ(readLines(folder / "Render log.txt").front(), "frame 1");
}

TEST_F(LoggerPanel, ALinkWhoseFirstTargetHoldsABarCannotBeDraggedOut) {
  Logger* logger = openLogger(0, 10, 500);
  loggerWrite(logger, linkTo({L"/renders/a|b.mov"}), LoggerBase::kOutputHyperLink);
  loggerWrite(logger, linkTo({L"/renders/final.mov"}), LoggerBase::kOutputHyperLink);
  pump();
  XY<int> const barred = rowOnScreen(*logger, 0);
  HeadlessInput::drag(barred, barred + XY<int>(60, 0));
  pump();
  for (auto const& request : OS().recordedShellRequests())
    EXPECT_NE(request.kind, Kind::drag);

  OS().clearRecordedShellRequests();
  XY<int> const plain = rowOnScreen(*logger, 1);
  HeadlessInput::drag(plain, plain + XY<int>(60, 0));
  pump();
  std::vector<Zo::ShellRequest> const requests = OS().recordedShellRequests();
  ASSERT_FALSE(requests.empty());
  EXPECT_EQ(requests.front(), (Zo::ShellRequest{Kind::drag, {L"/renders/final.mov"}}));
}

TEST_F(LoggerPanel, ALinkDraggedOutGoesToTheDesktopOnceForTheWholeDrag) {
  Logger* logger = openLogger(0, 10, 500);
  loggerWrite(logger, linkTo({L"/renders/final.mov"}), LoggerBase::kOutputHyperLink);
  pump();
  OS().clearRecordedShellRequests();
  XY<int> const row = rowOnScreen(*logger, 0);
  HeadlessInput::drag(row, row + XY<int>(120, 0), 12);
  pump();
  std::vector<Zo::ShellRequest> const requests = OS().recordedShellRequests();
  EXPECT_EQ(std::count_if(requests.begin(), requests.end(), [](auto const& r) { return r.kind == Kind::drag; }), 1);
}

TEST_F(LoggerPanel, ButtonsSitInARowUnderTheTable) {
  Logger::InitArgs args(10, 400, 0);
  args.buttons.push_back(PushButton::InitArgs(UIString(L"Stop"), XY<int>(80, PushButton::calcHeight())));
  args.buttons.push_back(PushButton::InitArgs(UIString(L"Pause"), XY<int>(80, PushButton::calcHeight())));
  Logger* logger = make_logger(args, 50, 50);
  ASSERT_EQ(logger->buttons().size(), 2u);
  PushButton* stop = logger->buttons()[0];
  PushButton* pause = logger->buttons()[1];
  EXPECT_LT(pause->getX(), stop->getX());
  EXPECT_LE(stop->getY() + stop->height(), logger->table()->getY());
  logger->setButtonActive(1, false, kNoRedraw);
  EXPECT_FALSE(pause->isActive());
  logger->setButtonActive(7, false, kNoRedraw);
  EXPECT_TRUE(stop->isActive());
}

TEST_F(LoggerPanel, ResizingKeepsTheTableInTheUserArea) {
  Logger* logger = openLogger(Logger::kFlagSharkGauge, 10, 400);
  logger->resize(600, logger->height() + 100);
  EXPECT_EQ(logger->table()->width(), logger->getUserArea().width());
  EXPECT_EQ(logger->gauge()->width(), logger->getUserArea().width());
  EXPECT_GE(logger->table()->getY(), logger->gauge()->getY() + logger->gauge()->height());
}

TEST_F(LoggerPanel, WithoutATitleBarATitleNamesTheWindowButDrawsNoBar) {
  Logger::InitArgs args(8, 400, Logger::kFlagNoTitleBar | Logger::kFlagNoCloseButton);
  args.title = UIString(L"Export log");
  Logger* logger = make_logger(args, 50, 50);
  EXPECT_EQ(logger->getStandardWidgets() & StandardPanel::kTitle, 0u);
  EXPECT_TRUE(logger->getTitleArea().empty());
  EXPECT_EQ(logger->windowTitle().str(), L"Export log");

  Logger::InitArgs titled(8, 400, Logger::kFlagNoCloseButton);
  titled.title = UIString(L"Export log");
  EXPECT_NE(make_logger(titled, 500, 50)->getStandardWidgets() & StandardPanel::kTitle, 0u);
}

} // namespace
