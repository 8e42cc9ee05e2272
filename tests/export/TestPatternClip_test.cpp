// Only with the codec libraries, whose own headers these tests read.
#ifdef ZO_HAVE_LIBAV

#include "support/SharedState.h"

#include <zowidgets/host/shell/LibavMediaSource.h>
#include <zowidgets/host/shell/MediaWriters.h>

#include <gtest/gtest.h>

extern "C" {
#include <libavformat/avformat.h>
}

#include <filesystem>

namespace {

class TestPatternClipTest : public ::testing::Test {
protected:
  void SetUp() override {
    resetSharedState();
    source = makeLibavMediaSource();
    if (!source)
      GTEST_SKIP() << "built without the codec libraries";
    Zo::MediaWriters::setSource(source);
    path = std::filesystem::temp_directory_path() / ("zowidgets-pattern-" + std::to_string(::getpid()) + ".mp4");
  }
  void TearDown() override {
    std::filesystem::remove(path);
    resetSharedState();
  }

  Zo::Image::Format formatNamed(char const* name) {
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Zo::Image::Format> formats;
    source->validFormats("mp4", ShotVideoMetadata(640, 360, {25, 1, false}), digital, formats);
    for (Zo::Image::Format const format : formats)
      if (source->formatName(format) == LightweightString<wchar_t>::fromUTF8(name))
        return format;
    return Zo::Image::Format();
  }

  Zo::Ptr<iMediaSource> source;
  std::filesystem::path path;
};

TEST_F(TestPatternClipTest, ClipHasTheChosenEncoderRateAndBitRate) {
  CompressionFormat format(formatNamed("libx264"));
  ASSERT_FALSE(format.code.isNone());
  format.options.set("b", 2000000.0);
  VideoCompressionInfo const info(ShotVideoMetadata(640, 360, {25, 1, false}), format);
  LightweightString<wchar_t> const error = writeTestPattern(path.wstring().c_str(), "mp4", info, 1.0);
  ASSERT_TRUE(error.empty()) << error.toUTF8().c_str();

  AVFormatContext* file = nullptr;
  ASSERT_EQ(avformat_open_input(&file, path.c_str(), nullptr, nullptr), 0);
  ASSERT_GE(avformat_find_stream_info(file, nullptr), 0);
  ASSERT_EQ(file->nb_streams, 1u);
  AVStream const& stream = *file->streams[0];
  EXPECT_EQ(stream.codecpar->codec_id, AV_CODEC_ID_H264);
  EXPECT_EQ(stream.codecpar->width, 640);
  EXPECT_EQ(av_q2d(stream.avg_frame_rate), 25.0);
  EXPECT_EQ(stream.nb_frames, 25);
  // A rate-controlled second of bars lands near what was asked.
  double const bitsPerSecond = double(std::filesystem::file_size(path)) * 8.0;
  EXPECT_GT(bitsPerSecond, 2000000.0 * 0.5);
  EXPECT_LT(bitsPerSecond, 2000000.0 * 1.5);
  avformat_close_input(&file);
}

TEST_F(TestPatternClipTest, OptionTheEncoderRefusesIsReported) {
  CompressionFormat format(formatNamed("libx264"));
  format.options.set("preset", L"no-such-preset");
  VideoCompressionInfo const info(ShotVideoMetadata(640, 360, {25, 1, false}), format);
  LightweightString<wchar_t> const error = writeTestPattern(path.wstring().c_str(), "mp4", info, 1.0);
  EXPECT_FALSE(error.empty());
}

TEST_F(TestPatternClipTest, FormatTheContainerDoesNotTakeIsRefused) {
  VideoCompressionInfo const info(ShotVideoMetadata(640, 360, {25, 1, false}),
                                  CompressionFormat(Zo::Image::Format("ZZZZ")));
  EXPECT_EQ(writeTestPattern(path.wstring().c_str(), "mp4", info, 1.0), L"The file type does not take this format");
  EXPECT_FALSE(std::filesystem::exists(path));
}

} // namespace

#endif
