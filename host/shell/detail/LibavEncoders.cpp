#include <zowidgets/host/shell/detail/LibavEncoders.h>

#ifdef ZO_HAVE_LIBAV

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unordered_map>

namespace LibavEncoders {

std::vector<Container> const& containers() {
  static std::vector<Container> const list = {{"quicktime", "mov", L"MOV"},
                                              {"mp4", "mp4", L"MP4"},
                                              {"mxf", "mxf", L"MXF"},
                                              {"matroska", "matroska", L"MKV"},
                                              {"avi", "avi", L"AVI"}};
  return list;
}

Container const* findContainer(LightweightString<char> const& id) {
  for (Container const& container : containers())
    if (id.view() == container.id)
      return &container;
  return nullptr;
}

namespace {

// What the library says, asked once per encoder and container.
bool libraryAccepts(Container const& container, AVCodec const& codec) {
  AVOutputFormat const* muxer = av_guess_format(container.muxer, nullptr, nullptr);
  return muxer && av_codec_is_encoder(&codec) && codec.type == AVMEDIA_TYPE_VIDEO &&
         avformat_query_codec(muxer, codec.id, FF_COMPLIANCE_NORMAL) == 1;
}

// The library's codec list is fixed for the life of the process, and menus
// ask for names and encoders many times per panel: walk it once.
struct EncoderIndex {
  struct Encoder {
    AVCodec const* codec;
    LightweightString<wchar_t> name;
  };
  std::unordered_map<std::int32_t, Encoder> byFormat;
  std::vector<std::vector<AVCodec const*>> byContainer;

  EncoderIndex() : byContainer(containers().size()) {
    void* iterator = nullptr;
    while (AVCodec const* codec = av_codec_iterate(&iterator)) {
      if (!av_codec_is_encoder(codec) || codec->type != AVMEDIA_TYPE_VIDEO)
        continue;
      byFormat.emplace(formatOf(*codec).raw(), Encoder{codec, LightweightString<wchar_t>::fromUTF8(codec->name)});
      // An experimental encoder refuses to write unless told the user
      // accepts that: offered, it would fail the export.
      if (codec->capabilities & AV_CODEC_CAP_EXPERIMENTAL)
        continue;
      for (std::size_t i = 0; i < containers().size(); ++i)
        if (libraryAccepts(containers()[i], *codec))
          byContainer[i].push_back(codec);
    }
    // The container's own choice of encoder comes first, where a type's
    // first format is what a user gets (AVI's is MPEG-4 Part 2, not "amv").
    for (std::size_t i = 0; i < containers().size(); ++i)
      if (AVOutputFormat const* muxer = av_guess_format(containers()[i].muxer, nullptr, nullptr))
        if (AVCodec const* preferred =
                muxer->video_codec != AV_CODEC_ID_NONE ? avcodec_find_encoder(muxer->video_codec) : nullptr)
          std::stable_partition(byContainer[i].begin(), byContainer[i].end(),
                                [preferred](AVCodec const* codec) { return codec == preferred; });
  }

  static EncoderIndex const& instance() {
    static EncoderIndex const index;
    return index;
  }
};

} // namespace

std::vector<AVCodec const*> const& encodersFor(Container const& container) {
  static std::vector<AVCodec const*> const none;
  auto const& byContainer = EncoderIndex::instance().byContainer;
  for (std::size_t i = 0; i < containers().size(); ++i)
    if (std::strcmp(containers()[i].id, container.id) == 0)
      return byContainer[i];
  return none;
}

bool accepts(Container const& container, AVCodec const& codec) {
  std::vector<AVCodec const*> const& encoders = encodersFor(container);
  return std::find(encoders.begin(), encoders.end(), &codec) != encoders.end();
}

Zo::Image::Format formatOf(AVCodec const& codec) {
  std::uint32_t hash = 2166136261u; // FNV-1a
  for (char const* c = codec.name; *c; ++c)
    hash = (hash ^ static_cast<unsigned char>(*c)) * 16777619u;
  auto const raw = static_cast<std::int32_t>(hash);
  return Zo::Image::Format(raw == Zo::Image::Format::kNone ? 0 : raw);
}

AVCodec const* findEncoder(Zo::Image::Format format) {
  auto const& byFormat = EncoderIndex::instance().byFormat;
  auto const found = byFormat.find(format.raw());
  return found == byFormat.end() ? nullptr : found->second.codec;
}

LightweightString<wchar_t> nameOf(Zo::Image::Format format) {
  auto const& byFormat = EncoderIndex::instance().byFormat;
  auto const found = byFormat.find(format.raw());
  return found == byFormat.end() ? LightweightString<wchar_t>() : found->second.name;
}

} // namespace LibavEncoders

#endif
