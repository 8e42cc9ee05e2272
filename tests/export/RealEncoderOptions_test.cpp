// Only with the codec libraries, whose own headers these tests read.
#ifdef ZO_HAVE_LIBAV

#include "support/SharedState.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/builder/BuiltPanel.h>
#include <zowidgets/export/FileWriterInfo.h>
#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/shell/LibavMediaSource.h>
#include <zowidgets/values/params/NumericParams.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <climits>
#include <cmath>
#include <map>
#include <string>

namespace {

// Every encoder of every container of the system's codec libraries, with
// the options the media services give for it.
class RealEncoderOptionsTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    Zo::Ptr<iMediaSource> source = makeLibavMediaSource();
    if (!source)
      GTEST_SKIP() << "built without the codec libraries";
    Zo::MediaWriters::setSource(source);
  }

  struct Encoder {
    LightweightString<char> fileType;
    Zo::Image::Format format;
    std::string name;
  };
  // One entry per encoder, under the first container that takes it.
  static std::vector<Encoder> everyEncoder() {
    std::map<std::string, Encoder> byName;
    iMediaSource& source = Zo::MediaWriters::source();
    for (LightweightString<char> const& type : source.fileTypes(Compression::kVideoExport)) {
      VectorExt<ShotVideoMetadata> digital;
      VectorExt<Zo::Image::Format> formats;
      source.validFormats(type, ShotVideoMetadata(1280, 720, {25, 1, false}), digital, formats);
      for (Zo::Image::Format const format : formats) {
        std::string const name(source.formatName(format).toUTF8().view());
        byName.emplace(name, Encoder{type, format, name});
      }
    }
    std::vector<Encoder> encoders;
    for (auto const& [name, encoder] : byName)
      encoders.push_back(encoder);
    return encoders;
  }
  static GenericParam::ParamList paramsOf(Encoder const& encoder) {
    VideoCompressionInfo info(ShotVideoMetadata(1280, 720, {25, 1, false}), CompressionFormat(encoder.format));
    return Zo::FileWriterInfo::getEncodeOptions(encoder.fileType, info);
  }
};

TEST_F(RealEncoderOptionsTest, ContainersAreTheRealOnesAndTakeTheirEncoders) {
  EXPECT_EQ(Zo::MediaWriters::getSupportedFormatTypes(Compression::kVideoExport),
            (std::vector<LightweightString<char>>{"quicktime", "mp4", "mxf", "matroska", "avi"}));
  EXPECT_EQ(ZoExport::getExtensionForFormatID("matroska"), L"MKV");
  std::vector<Encoder> const encoders = everyEncoder();
  EXPECT_GT(encoders.size(), 10u);
  bool hasX264 = false;
  for (Encoder const& encoder : encoders)
    hasX264 = hasX264 || encoder.name == "libx264";
  EXPECT_TRUE(hasX264);
}

TEST_F(RealEncoderOptionsTest, ATypesFirstFormatIsItsContainersOwnChoiceAndNoneIsExperimental) {
  iMediaSource& source = Zo::MediaWriters::source();
  auto formatsOf = [&source](char const* type) {
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Zo::Image::Format> formats;
    source.validFormats(type, ShotVideoMetadata(1280, 720, {25, 1, false}), digital, formats);
    return formats;
  };
  VectorExt<Zo::Image::Format> const avi = formatsOf("avi");
  ASSERT_FALSE(avi.empty());
  AVCodec const* aviDefault = avcodec_find_encoder(AV_CODEC_ID_MPEG4);
  ASSERT_NE(aviDefault, nullptr);
  EXPECT_EQ(std::string(source.formatName(avi.front()).toUTF8().view()), aviDefault->name)
      << "the container's own encoder, not the first of the library's list";
  for (Encoder const& encoder : everyEncoder()) {
    AVCodec const* codec = avcodec_find_encoder_by_name(encoder.name.c_str());
    ASSERT_NE(codec, nullptr) << encoder.name;
    EXPECT_EQ(codec->capabilities & AV_CODEC_CAP_EXPERIMENTAL, 0) << encoder.name << " refuses to write";
  }
}

TEST_F(RealEncoderOptionsTest, EveryEncodersOptionsBuildIntoAPanel) {
  int panels = 0;
  for (Encoder const& encoder : everyEncoder()) {
    GenericParam::ParamList params = paramsOf(encoder);
    std::size_t const count = params.size();
    StandardPanel* panel = openPanel(XY<int>(420, 200));
    Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
    ASSERT_NE(built, nullptr) << encoder.name;
    EXPECT_EQ(built->getWidgets().size(), count) << encoder.name;
    for (Zo::Ptr<GenericParam::iParam> const& param : params)
      EXPECT_NE(built->getWidget(param->getID()), nullptr) << encoder.name << " " << param->getID().c_str();
    GlobManager::requestDeletion(panel);
    pump();
    ++panels;
  }
  EXPECT_GT(panels, 10);
}

TEST_F(RealEncoderOptionsTest, SavedStateOfARealEncoderRestores) {
  Encoder x264;
  for (Encoder const& encoder : everyEncoder())
    if (encoder.name == "libx264")
      x264 = encoder;
  ASSERT_FALSE(x264.format.isNone());
  GenericParam::ParamList params = paramsOf(x264);
  StandardPanel* panel = openPanel(XY<int>(420, 200));
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  for (Zo::Ptr<GenericParam::iParam> const& param : params) {
    if (param->getID() == "b")
      param->setValueFromString(L"3000000");
    if (param->getID() == "preset")
      param->setValueFromString(L"veryfast");
    if (param->getID() == "crf")
      param->setValueFromString(L"30");
  }
  configb saved;
  built->saveState(saved);
  GenericParam::ParamList fresh = paramsOf(x264);
  GenericParam::restoreState(fresh, saved);
  for (std::size_t i = 0; i < params.size(); ++i)
    EXPECT_EQ(fresh[i]->getValueAsString(), params[i]->getValueAsString()) << params[i]->getID().c_str();
  EXPECT_EQ(saved.getString("preset"), L"veryfast");
  EXPECT_DOUBLE_EQ(saved.getDouble("b"), 3000000.0);
}

// Each integer option's range and default reach its parameter unchanged; its
// bounds, saved as a panel saves them, set on a real encoder read back the same.
TEST_F(RealEncoderOptionsTest, IntegerOptionRangesAndDefaultsSurviveTheTripThroughAParameter) {
  int checked = 0;
  for (Encoder const& encoder : everyEncoder()) {
    AVCodec const* codec = avcodec_find_encoder_by_name(encoder.name.c_str());
    ASSERT_NE(codec, nullptr) << encoder.name;
    AVCodecContext* context = avcodec_alloc_context3(codec);
    ASSERT_NE(context, nullptr);
    for (Zo::Ptr<GenericParam::iParam> const& param : paramsOf(encoder)) {
      auto* integer = dynamic_cast<GenericParam::IntParam*>(param.get());
      if (!integer)
        continue;
      std::string const name(param->getID().view());
      AVOption const* option = av_opt_find(context, name.c_str(), nullptr, 0, AV_OPT_SEARCH_CHILDREN);
      ASSERT_NE(option, nullptr) << encoder.name << " " << name;
      // Ranges wider than an int are offered within it.
      EXPECT_EQ(integer->min, static_cast<int>(std::max(option->min, double(INT_MIN)))) << encoder.name << " " << name;
      EXPECT_EQ(integer->max, static_cast<int>(std::min(option->max, double(INT_MAX)))) << encoder.name << " " << name;
      EXPECT_EQ(param->getDefaultValueAsString(), std::to_wstring(option->default_val.i64))
          << encoder.name << " " << name;
      for (int bound : {integer->min, integer->max}) {
        param->setValueFromString(LightweightString<wchar_t>(std::to_wstring(bound)));
        configb saved;
        GenericParam::saveState(GenericParam::ParamList{param}, saved);
        std::string const text(saved.getString(param->getID()).toUTF8().view());
        ASSERT_GE(av_opt_set(context, name.c_str(), text.c_str(), AV_OPT_SEARCH_CHILDREN), 0) << name << "=" << text;
        std::int64_t back = 0;
        ASSERT_GE(av_opt_get_int(context, name.c_str(), AV_OPT_SEARCH_CHILDREN, &back), 0);
        EXPECT_EQ(back, bound) << encoder.name << " " << name;
      }
      ++checked;
    }
    avcodec_free_context(&context);
  }
  EXPECT_GT(checked, 50);
}

} // namespace

#endif
