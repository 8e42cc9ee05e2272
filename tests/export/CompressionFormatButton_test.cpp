#include "ExportTestSupport.h"

#include <zowidgets/export/CompressionFormatButton.h>

namespace {

using Zo::Image::Format;

class CompressionFormatButtonTest : public ExportWidgetTest {
protected:
  void SetUp() override {
    ExportWidgetTest::SetUp();
    CompressionFormatButton::InitArgs args(Compression::kVideoExport, 320, 24);
    button = log->createChild<CompressionFormatButton>(args, Glob::UserTopLeft(10, 10));
  }
  // Offers the formats of `fileType` and selects `code` among them.
  void start(char const* fileType, char const* code, ShotVideoMetadata const& metadata) {
    button->setOutputFormat(fileType, metadata);
    button->setSelected(CompressionFormat(Format(code)), metadata);
    ASSERT_EQ(button->getCompressionFormat().code, Format(code));
  }

  CompressionFormatButton* button = nullptr;
};

TEST_F(CompressionFormatButtonTest, HighDefinitionWithoutItsFirstChoiceTakesTheSecondWithNoBitRate) {
  start("quicktime", "M701", shot(1920, 1080));
  button->setOutputFormat("avi", shot(1920, 1080));
  EXPECT_EQ(button->getCompressionFormat().code, Format("M102"));
  EXPECT_FALSE(button->getLastSelected().hasBitRate());
}

TEST_F(CompressionFormatButtonTest, HighDefinitionFirstChoiceCarriesItsBitRate) {
  start("mp4", "AVC1", shot(1920, 1080));
  button->setOutputFormat("mxf", shot(1920, 1080));
  EXPECT_EQ(button->getCompressionFormat().code, Format("M701"));
  EXPECT_DOUBLE_EQ(button->getLastSelected().getBitRate(), 250.0);
  // The button itself answers with the code alone.
  EXPECT_FALSE(button->getCompressionFormat().hasBitRate());
}

TEST_F(CompressionFormatButtonTest, WidthOfExactly720UsesTheStandardDefinitionRow) {
  start("mp4", "AVC1", shot(720, 576));
  button->setOutputFormat("mxf", shot(720, 576));
  EXPECT_EQ(button->getCompressionFormat().code, Format("MMES"));
  EXPECT_DOUBLE_EQ(button->getLastSelected().getBitRate(), 50.0);
}

TEST_F(CompressionFormatButtonTest, WidthOf721UsesTheHighDefinitionRow) {
  start("mp4", "AVC1", shot(721, 576));
  button->setOutputFormat("mxf", shot(721, 576));
  EXPECT_EQ(button->getCompressionFormat().code, Format("M701"));
}

TEST_F(CompressionFormatButtonTest, StandardDefinitionWithoutItsFirstChoiceTakesTheSecond) {
  start("quicktime", "MMES", shot(720, 576));
  button->setOutputFormat("avi", shot(720, 576));
  EXPECT_EQ(button->getCompressionFormat().code, Format("M101"));
  EXPECT_FALSE(button->getLastSelected().hasBitRate());
}

TEST_F(CompressionFormatButtonTest, WithNeitherChoiceTheFirstFormatOfTheTypeIsTaken) {
  start("quicktime", "MJPG", shot(1920, 1080));
  button->setOutputFormat("mp4", shot(1920, 1080));
  EXPECT_EQ(button->getCompressionFormat().code, Format("AVC1"));
}

TEST_F(CompressionFormatButtonTest, ChangingFileTypeKeepsAFormatTheNewTypeTakes) {
  start("quicktime", "MJPG", shot(1920, 1080));
  button->setOutputFormat("avi", shot(1920, 1080));
  EXPECT_EQ(button->getCompressionFormat().code, Format("MJPG"));
  EXPECT_EQ(button->getBtn().getSelectedItemNameW(), L"Motion JPEG");
}

TEST_F(CompressionFormatButtonTest, TypeWithoutFormatsGivesAnEmptyInactiveButton) {
  start("quicktime", "MJPG", shot(1920, 1080));
  button->setOutputFormat("wav", shot(1920, 1080));
  EXPECT_EQ(button->getBtn().getMenu().size(), 0);
  EXPECT_TRUE(button->getCompressionFormat().code.isNone());
  EXPECT_FALSE(button->isActive());
  button->setOutputFormat("avi", shot(1920, 1080));
  EXPECT_TRUE(button->isActive());
}

TEST_F(CompressionFormatButtonTest, NoFormatCodeChangesNothing) {
  start("quicktime", "M102", shot(1920, 1080));
  button->setSelected(CompressionFormat(), shot(1920, 1080));
  EXPECT_EQ(button->getCompressionFormat().code, Format("M102"));
}

TEST_F(CompressionFormatButtonTest, DisplayFlagsAddTheCodeToEachRow) {
  button->setDisplayFlags(VideoCompressionInfo::kShowName | VideoCompressionInfo::kShowCode);
  start("avi", "MJPG", shot(1920, 1080));
  EXPECT_EQ(button->getBtn().getSelectedItemNameW(), L"Motion JPEG (MJPG)");
}

TEST_F(CompressionFormatButtonTest, ChoosingAFormatWithThePointerTellsTheParent) {
  start("quicktime", "M701", shot(1920, 1080));
  chooseRow(button->getBtn(), rowOf(button->getBtn(), L"SD long-GOP"));
  EXPECT_EQ(button->getCompressionFormat().code, Format("MMES"));
  ASSERT_EQ(log->messages.size(), 1u);
  EXPECT_EQ(log->messages[0], "CFBChangedMsg");
  EXPECT_EQ(log->senders[0], button);
}

TEST_F(CompressionFormatButtonTest, NothingChosenAnswersNoFormat) {
  EXPECT_TRUE(button->getCompressionFormat().code.isNone());
  EXPECT_STREQ(button->idstring(), "CompressionFormatButton");
}

} // namespace
