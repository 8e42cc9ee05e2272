#include "ExportTestSupport.h"

#include <zowidgets/export/FileFormatButton.h>
#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

class FileFormatButtonTest : public ExportWidgetTest {
protected:
  FileFormatButton* makeButton(char const* key = "Export : file type") {
    FileFormatButton::InitArgs args(Compression::kVideoExport, key, XY<int>(120, 24));
    return log->createChild<FileFormatButton>(args, Glob::UserTopLeft(10, 10));
  }
  // The standard table with AVI moved to the end, so that its choice is
  // never the first row by chance.
  static void putAviLast() {
    Zo::Ptr<BuiltInMediaTable> table = BuiltInMediaTable::makeStandard();
    table->removeFileType("avi");
    table->setFileType({Compression::kVideoExport, "avi", L"AVI", {Zo::Image::Format("MJPG")}});
    Zo::MediaWriters::setSource(Zo::Ptr<iMediaSource>(table));
  }
};

TEST_F(FileFormatButtonTest, RememberedLowerCaseExtensionMatchesItsType) {
  putAviLast();
  prefs().setPreference("Export : file type", LightweightString<wchar_t>(L"avi"));
  FileFormatButton* button = makeButton();
  EXPECT_EQ(button->getSelectedItemNameW(), L"AVI");
  EXPECT_EQ(button->getSelectedItem(), button->getMenu().size() - 1);
  EXPECT_EQ(button->getFileType(), "avi");
}

TEST_F(FileFormatButtonTest, WithNothingRememberedAviIsChosen) {
  putAviLast();
  FileFormatButton* button = makeButton();
  EXPECT_EQ(button->getSelectedItemNameW(), L"AVI");
}

TEST_F(FileFormatButtonTest, UnknownRememberedExtensionLeavesTheFirstType) {
  prefs().setPreference("Export : file type", LightweightString<wchar_t>(L"xyz"));
  FileFormatButton* button = makeButton();
  EXPECT_EQ(button->getSelectedItem(), 0);
  EXPECT_EQ(button->getFileType(), Zo::MediaWriters::getSupportedFormatTypes(Compression::kVideoExport).front());
}

TEST_F(FileFormatButtonTest, MenuOffersEveryTypeOfTheUsageByExtension) {
  FileFormatButton* button = makeButton();
  std::vector<std::wstring> rows;
  for (MenuItem const& item : button->getMenu().items())
    rows.push_back(item.text.getString().str());
  EXPECT_EQ(rows, (std::vector<std::wstring>{L"AVI", L"MOV", L"MXF", L"MP4", L"MKV"}));
}

TEST_F(FileFormatButtonTest, ChoosingATypeRemembersItAndTellsTheParent) {
  FileFormatButton* button = makeButton();
  chooseRow(*button, rowOf(*button, L"MXF"));
  EXPECT_EQ(button->getFileType(), "mxf");
  EXPECT_EQ(prefs().getPreference("Export : file type", L""), L"MXF");
  ASSERT_FALSE(log->messages.empty());
  EXPECT_EQ(log->messages.front(), FileFormatButton::FileTypeChangedMsg);
  EXPECT_EQ(log->senders.front(), button);
}

TEST_F(FileFormatButtonTest, WithoutAKeyNothingIsRemembered) {
  FileFormatButton* button = makeButton("");
  chooseRow(*button, rowOf(*button, L"MKV"));
  EXPECT_EQ(button->getFileType(), "matroska");
  EXPECT_EQ(prefs().getPreference("", L"none"), L"none");
}

TEST_F(FileFormatButtonTest, TitledButtonSitsAtTheRightOfItsLegend) {
  TitledFileFormatButtonInitArgs args(Compression::kVideoExport, "Export : file type", UIString(L"File type"), 300);
  auto* titled = log->createChild<TitledFileFormatButton>(args, Glob::UserTopLeft(10, 60));
  ASSERT_NE(titled->getButton(), nullptr);
  EXPECT_EQ(titled->getChildGlob(), titled->getButton());
  EXPECT_EQ(titled->height(), UifStd::getRowHeight());
  EXPECT_EQ(titled->getButton()->getPosition().x + titled->getButton()->width(), titled->width());
  chooseRow(*titled->getButton(), rowOf(*titled->getButton(), L"MOV"));
  EXPECT_EQ(titled->getButton()->getFileType(), "quicktime");
}

TEST_F(FileFormatButtonTest, ATitledButtonsChoiceReachesThePanelHoldingItFromItsButton) {
  TitledFileFormatButtonInitArgs args(Compression::kVideoExport, "", UIString(L"File type"), 300);
  auto* titled = log->createChild<TitledFileFormatButton>(args, Glob::UserTopLeft(10, 60));
  chooseRow(*titled->getButton(), rowOf(*titled->getButton(), L"MP4"));
  ASSERT_EQ(log->messages.size(), 1u) << "told once, not swallowed by the legend's row";
  EXPECT_EQ(log->messages.front(), FileFormatButton::FileTypeChangedMsg);
  EXPECT_EQ(log->senders.front(), titled->getButton());
  EXPECT_EQ(titled->getButton()->getFileType(), "mp4");
}

} // namespace
