#include <zowidgets/host/shell/BuiltInMediaTable.h>
#include <zowidgets/host/shell/FrameRate.h>
#include <zowidgets/host/shell/MediaWriters.h>

#include "support/SharedState.h"

#include <gtest/gtest.h>

#include <set>

namespace {

class MediaServicesTest : public ::testing::Test {
protected:
  void SetUp() override { resetSharedState(); }
  void TearDown() override { resetSharedState(); }
};

TEST_F(MediaServicesTest, FormatCodeKeepsItsCharactersInWritingOrder) {
  Zo::Image::Format const code("M701");
  EXPECT_EQ(code.raw(), ('M' << 24) | ('7' << 16) | ('0' << 8) | '1');
  EXPECT_EQ(code.toString(), "M701");
  EXPECT_EQ(Zo::Image::Format("RAW").toString(), "RAW ");
  EXPECT_TRUE(Zo::Image::Format().isNone());
  EXPECT_EQ(Zo::Image::Format().toString(), "");
}

TEST_F(MediaServicesTest, EveryFrameRateDisplayStringReadsBackToItsRate) {
  std::vector<Zo::FrameRate> rates;
  Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
  ASSERT_EQ(rates.size(), 15u);
  std::set<std::wstring> seen;
  for (Zo::FrameRate const& rate : rates) {
    LightweightString<wchar_t> const text = Zo::getDisplayString(rate);
    EXPECT_TRUE(seen.insert(text.str()).second) << "two rates read " << text.toUTF8().c_str();
    EXPECT_EQ(Zo::getFrameRateFromDisplayString(text), rate) << text.toUTF8().c_str();
  }
  EXPECT_DOUBLE_EQ(rates.front().framesPerSecond(), 24000.0 / 1001.0);
  EXPECT_DOUBLE_EQ(rates.back().framesPerSecond(), 120.0);
}

TEST_F(MediaServicesTest, DropFrameIsNotedOnlyOnTheNtscRates) {
  EXPECT_EQ(Zo::getDisplayString({30000, 1001, true}), L"29.97 fps DF");
  EXPECT_EQ(Zo::getDisplayString({30000, 1001, false}), L"29.97 fps");
  EXPECT_EQ(Zo::getDisplayString({24000, 1001, false}), L"23.976 fps");
  EXPECT_EQ(Zo::getDisplayString({25, 1, false}), L"25 fps");
  std::vector<Zo::FrameRate> rates;
  Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
  for (Zo::FrameRate const& rate : rates) {
    if (rate.dropFrame) {
      EXPECT_EQ(rate.denominator, 1001);
    }
  }
}

TEST_F(MediaServicesTest, UnknownFrameRateTextGivesNoRate) {
  EXPECT_FALSE(Zo::getFrameRateFromDisplayString(L"fast").isValid());
  EXPECT_FALSE(Zo::getFrameRateFromDisplayString(L"").isValid());
  EXPECT_EQ(Zo::getFrameRateFromDisplayString(L"15 fps"), (Zo::FrameRate{15, 1, false}));
}

TEST_F(MediaServicesTest, FrameRateGroupsHoldTheirFamilies) {
  std::vector<Zo::FrameRate> pal;
  Zo::getFrameRates(Zo::FrameRateGroups::kPAL, pal);
  EXPECT_EQ(pal, (std::vector<Zo::FrameRate>{{25, 1, false}, {50, 1, false}, {100, 1, false}}));
}

TEST_F(MediaServicesTest, ExtensionsMatchTheirTypesRegardlessOfCase) {
  EXPECT_EQ(ZoExport::getExtensionForFormatID("quicktime"), L"MOV");
  EXPECT_EQ(ZoExport::getFormatIDForExtension(L"mov"), "quicktime");
  EXPECT_EQ(ZoExport::getFormatIDForExtension(L"AvI"), "avi");
  EXPECT_EQ(ZoExport::getFormatIDForExtension(L"xyz"), "");
  EXPECT_EQ(ZoExport::getExtensionForFormatID("nonesuch"), L"");
}

TEST_F(MediaServicesTest, BuiltInTableListsVideoAndSoundTypesApart) {
  auto const video = Zo::MediaWriters::getSupportedFormatTypes(Compression::kVideoExport);
  auto const sound = Zo::MediaWriters::getSupportedFormatTypes(Compression::kAudioExport);
  EXPECT_EQ(video.size(), 5u);
  ASSERT_EQ(sound.size(), 1u);
  EXPECT_EQ(sound[0], "wav");
}

TEST_F(MediaServicesTest, ValidFormatsFollowTheFileType) {
  ShotVideoMetadata const hd(1920, 1080, {25, 1, false});
  VectorExt<ShotVideoMetadata> digital;
  VectorExt<Zo::Image::Format> formats;
  Compression::getValidFormats("mxf", hd, digital, formats);
  EXPECT_TRUE(formats.contains(Zo::Image::Format("M701")));
  ASSERT_EQ(digital.size(), 1u);
  EXPECT_EQ(digital[0], hd);
  Compression::getValidFormats("wav", hd, digital, formats);
  EXPECT_TRUE(formats.empty());
  EXPECT_TRUE(digital.empty());
}

TEST_F(MediaServicesTest, EncodeOptionsDescribeTheFormatsOptions) {
  VideoCompressionInfo info({1920, 1080, {25, 1, false}}, CompressionFormat(Zo::Image::Format("M701")));
  MediaOptions const options = Zo::MediaWriters::getEncodeOptions("quicktime", info);
  ASSERT_EQ(options.size(), 3u);
  EXPECT_EQ(options[0].id, CompressionFormat::kBitRateOption);
  EXPECT_EQ(options[0].kind, MediaOption::kNumber);
  EXPECT_DOUBLE_EQ(options[0].defaultNumber, 250.0);
  EXPECT_EQ(options[2].kind, MediaOption::kChoice);
  EXPECT_EQ(options[2].choices.size(), 2u);
  // A format the type does not take has no options there.
  EXPECT_TRUE(Zo::MediaWriters::getEncodeOptions("mp4", info).empty());
}

TEST_F(MediaServicesTest, DisplayStringNamesTheFormatAndOptionallyItsCode) {
  VideoCompressionInfo info({720, 576, {25, 1, false}}, CompressionFormat(Zo::Image::Format("MJPG")));
  EXPECT_EQ(info.getDisplayString(VideoCompressionInfo::kShowName), L"Motion JPEG");
  EXPECT_EQ(info.getDisplayString(VideoCompressionInfo::kShowName | VideoCompressionInfo::kShowCode),
            L"Motion JPEG (MJPG)");
  info.setCompressionFormat(CompressionFormat(Zo::Image::Format("ZZZZ")));
  EXPECT_EQ(info.getDisplayString(VideoCompressionInfo::kShowName), L"ZZZZ");
  info.setCompressionFormat(CompressionFormat());
  EXPECT_EQ(info.getDisplayString(VideoCompressionInfo::kShowName), L"");
}

TEST_F(MediaServicesTest, TableCanBeChangedByItsOwner) {
  Zo::Ptr<BuiltInMediaTable> table = BuiltInMediaTable::makeStandard();
  table->removeFileType("avi");
  table->setFileType({Compression::kVideoExport, "raw", L"YUV", {Zo::Image::Format("RAW ")}});
  Zo::MediaWriters::setSource(Zo::Ptr<iMediaSource>(table));
  EXPECT_EQ(ZoExport::getFormatIDForExtension(L"AVI"), "");
  EXPECT_EQ(ZoExport::getFormatIDForExtension(L"yuv"), "raw");
}

TEST_F(MediaServicesTest, EqualMetadataCollapseInASet) {
  std::set<ShotVideoMetadata, ShotVideoMetadata::CompareT> set;
  set.insert(ShotVideoMetadata(1920, 1080, {25, 1, false}));
  set.insert(ShotVideoMetadata(1920, 1080, {25, 1, false}));
  ShotVideoMetadata other(1920, 1080, {25, 1, false});
  other.sample.colorimetry = 4;
  set.insert(other);
  EXPECT_EQ(set.size(), 2u);
}

TEST_F(MediaServicesTest, MetadataGroupsBySizeAndShowsItsRaster) {
  ShotVideoMetadata const hd(1920, 1080, {25, 1, false}, ShotVideoMetadata::kInterlacedUpperFirst);
  EXPECT_EQ(hd.getDisplayString(), L"1920x1080i 25 fps");
  EXPECT_EQ(hd.getVideoFormatInfo().group, Zo::FormatGroup::kHD);
  EXPECT_EQ(ShotVideoMetadata(720, 576, {25, 1, false}).getVideoFormatInfo().group, Zo::FormatGroup::kSD);
  EXPECT_EQ(ShotVideoMetadata(3840, 2160, {25, 1, false}).getVideoFormatInfo().group, Zo::FormatGroup::kUHD);
}

} // namespace
