#include "ExportTestSupport.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/export/CompressionWidget.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/values/notify/Callback.h>

namespace {

using Zo::Image::Format;

class CompressionWidgetTest : public ExportWidgetTest {
protected:
  void SetUp() override {
    ExportWidgetTest::SetUp();
    CompressionWidget::InitArgs args(Compression::kVideoExport, 360);
    args.fileType = "quicktime";
    args.listener =
        Zo::Ptr<iCallbackBase<int, NotifyMsg>>(new FunctionCallback<NotifyMsg, int>([this](NotifyMsg const& m) {
          if (auto const* event = dynamic_cast<CompressionWidget::Event const*>(m.data().get()))
            heard.push_back(event->info);
          return 0;
        }));
    widget = log->createChild<CompressionWidget>(args, Glob::UserTopLeft(10, 10));
  }

  void show(char const* code, configb options = {}) {
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Format> formats;
    Compression::getValidFormats("quicktime", shot(1920, 1080), digital, formats);
    VideoCompressionInfo info(shot(1920, 1080), CompressionFormat(Format(code), std::move(options)));
    widget->setCompressionFormat(info, formats);
  }

  template <class T> T* row(char const* id) {
    auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(widget->getBuiltParams()->getWidget(id));
    return host ? dynamic_cast<T*>(host->getChild()) : nullptr;
  }

  void chooseFormat(wchar_t const* name) {
    DropDownMenuButton& button = widget->getFormatButton()->getBtn();
    chooseRow(button, rowOf(button, name));
  }

  CompressionWidget* widget = nullptr;
  std::vector<VideoCompressionInfo> heard;
};

TEST_F(CompressionWidgetTest, HasOnlyItsButtonUntilAFormatIsSet) {
  EXPECT_EQ(widget->getBuiltParams(), nullptr);
  EXPECT_EQ(widget->height(), UifStd::getRowHeight());
  EXPECT_STREQ(widget->idstring(), "CompressionWidget");
}

TEST_F(CompressionWidgetTest, FormatOptionsBecomeRowsBelowTheButton) {
  show("M701");
  ASSERT_NE(widget->getBuiltParams(), nullptr);
  EXPECT_EQ(widget->getParams().size(), 3u);
  Glob* bitRate = widget->getBuiltParams()->getWidget(CompressionFormat::kBitRateOption);
  ASSERT_NE(bitRate, nullptr);
  // Bottom-up coordinates: the first row lies a row gap under the button.
  EXPECT_EQ(widget->getFormatButton()->getPosition().y - (bitRate->getPosition().y + bitRate->height()),
            UifStd::getRowGap());
  EXPECT_EQ(widget->height(), UifStd::getRowGap() + widget->getBuiltParams()->calcHeight() + UifStd::getRowHeight());
  // Every value, defaults included, is in the options now.
  EXPECT_DOUBLE_EQ(widget->getVideoCompressionInfo().compression.options.getDouble(CompressionFormat::kBitRateOption),
                   250.0);
  EXPECT_EQ(widget->getVideoCompressionInfo().compression.options.getInt("GOPLength"), 12);
}

TEST_F(CompressionWidgetTest, ChangingFormatDiscardsOptionsAndChangingBackDoesNotRestoreThem) {
  show("M701");
  ChoiceParamHost* chroma = row<ChoiceParamHost>("Chroma");
  ASSERT_NE(chroma, nullptr);
  chooseRow(chroma->getMenuButton()->getBtn(), 1);
  EXPECT_EQ(widget->getVideoCompressionInfo().compression.options.getInt("Chroma"), 1);
  chooseFormat(L"Motion JPEG");
  EXPECT_EQ(widget->getVideoCompressionInfo().compression.code, Format("MJPG"));
  EXPECT_FALSE(widget->getVideoCompressionInfo().compression.options.in("Chroma"));
  EXPECT_EQ(widget->getVideoCompressionInfo().compression.options.getInt("Quality"), 75);
  chooseFormat(L"HD long-GOP 4:2:2");
  EXPECT_EQ(widget->getVideoCompressionInfo().compression.options.getInt("Chroma"), 0);
  EXPECT_EQ(row<ChoiceParamHost>("Chroma")->getMenuButton()->getSelectedItem(), 0);
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back().compression.code, Format("M701"));
}

TEST_F(CompressionWidgetTest, ChangingAnOptionInformsTheOwnerWithTheNewValue) {
  show("M701");
  heard.clear();
  ChoiceParamHost* chroma = row<ChoiceParamHost>("Chroma");
  chooseRow(chroma->getMenuButton()->getBtn(), 1);
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back().compression.options.getInt("Chroma"), 1);
  EXPECT_EQ(heard.back().compression.code, Format("M701"));
}

TEST_F(CompressionWidgetTest, StoredOptionTheFormatRefusesIsCorrectedAndWrittenBack) {
  configb stored;
  stored.set("Chroma", 9); // no such choice
  stored.set("GOPLength", 30);
  stored.set("Obsolete", 1);
  show("M701", stored);
  configb const& options = widget->getVideoCompressionInfo().compression.options;
  EXPECT_EQ(options.getInt("Chroma"), 0);
  EXPECT_EQ(options.getInt("GOPLength"), 30);
  EXPECT_FALSE(options.in("Obsolete"));
}

TEST_F(CompressionWidgetTest, AnyHeightGivenToResizeYieldsTheContentsHeight) {
  show("M701");
  int const content = widget->height();
  widget->resize(400, 5);
  EXPECT_EQ(widget->height(), content);
  widget->resize(400, 900);
  EXPECT_EQ(widget->height(), content);
  EXPECT_EQ(widget->width(), 400);
}

TEST_F(CompressionWidgetTest, NoCompressionCodeEmptiesTheWidgetWithoutAnEvent) {
  show("M701");
  heard.clear();
  widget->setCompressionFormat(VideoCompressionInfo(shot(1920, 1080), CompressionFormat()), {});
  EXPECT_EQ(widget->getBuiltParams(), nullptr);
  EXPECT_TRUE(widget->getParams().empty());
  EXPECT_EQ(widget->height(), UifStd::getRowHeight());
  EXPECT_TRUE(heard.empty());
}

TEST_F(CompressionWidgetTest, AFormatTheTypeLacksGivesWayToTheReplacementTheButtonShows) {
  configb remembered;
  remembered.set(CompressionFormat::kBitRateOption, 99.0);
  show("XXXX", remembered); // remembered for another file type
  VideoCompressionInfo const info = widget->getVideoCompressionInfo();
  EXPECT_EQ(info.compression.code, Format("M701")) << "the high-definition replacement for a 1920 wide shot";
  EXPECT_EQ(widget->getFormatButton()->getCompressionFormat().code, info.compression.code);
  EXPECT_DOUBLE_EQ(info.compression.options.getDouble(CompressionFormat::kBitRateOption), 250.0)
      << "the other format's options do not carry over";
  ASSERT_NE(widget->getBuiltParams(), nullptr);
  EXPECT_EQ(widget->getParams().size(), 3u);
  EXPECT_TRUE(heard.empty()) << "set by the program: no event";
}

TEST_F(CompressionWidgetTest, AFormatOfferedNoFormatsLeavesOnlyTheButton) {
  VideoCompressionInfo info(shot(1920, 1080), CompressionFormat(Format("M701")));
  widget->setCompressionFormat(info, VectorExt<Format>());
  EXPECT_TRUE(widget->getVideoCompressionInfo().compression.code.isNone());
  EXPECT_EQ(widget->getBuiltParams(), nullptr);
  EXPECT_EQ(widget->height(), UifStd::getRowHeight());
}

TEST_F(CompressionWidgetTest, FormatWithoutOptionsIsAButtonAndAGapHigh) {
  show("RAW ");
  ASSERT_NE(widget->getBuiltParams(), nullptr);
  EXPECT_TRUE(widget->getParams().empty());
  EXPECT_EQ(widget->height(), UifStd::getRowHeight() + UifStd::getRowGap());
}

TEST_F(CompressionWidgetTest, TypingABitRateIntoItsRowStoresIt) {
  show("M701");
  SliderParamHost* bitRate = row<SliderParamHost>(CompressionFormat::kBitRateOption);
  ASSERT_NE(bitRate, nullptr);
  ASSERT_NE(bitRate->getTextBox(), nullptr);
  HeadlessInput::clickOn(*bitRate->getTextBox());
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyEnd, kKeyShift);
  HeadlessInput::typeText("120");
  HeadlessInput::key(kKeyReturn);
  pump();
  ASSERT_FALSE(heard.empty());
  EXPECT_DOUBLE_EQ(heard.back().compression.options.getDouble(CompressionFormat::kBitRateOption), 120.0);
}

} // namespace
