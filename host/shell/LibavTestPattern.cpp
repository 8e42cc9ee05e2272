#include <zowidgets/host/shell/LibavMediaSource.h>

#ifdef ZO_HAVE_LIBAV

#include <zowidgets/host/shell/detail/LibavEncoders.h>
#include <zowidgets/host/shell/detail/LibavOptions.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

LightweightString<wchar_t> failure(char const* what, int code = 0) {
  std::string text = what;
  if (code < 0) {
    char reason[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, reason, sizeof reason);
    text += std::string(": ") + reason;
  }
  return LightweightString<wchar_t>::fromUTF8(text);
}

// Everything one write holds, released in the right order whatever happens.
struct Writer {
  AVFormatContext* format = nullptr;
  AVCodecContext* codec = nullptr;
  AVFrame* rgb = nullptr;
  AVFrame* frame = nullptr;
  AVPacket* packet = nullptr;
  SwsContext* scaler = nullptr;
  AVDictionary* options = nullptr;
  bool opened = false;
  std::string partial; // the file being written, renamed to its name once whole

  ~Writer() {
    av_dict_free(&options);
    sws_freeContext(scaler);
    av_packet_free(&packet);
    av_frame_free(&frame);
    av_frame_free(&rgb);
    avcodec_free_context(&codec);
    if (format && opened)
      avio_closep(&format->pb);
    avformat_free_context(format);
    if (!partial.empty())
      std::remove(partial.c_str());
  }

  int drain() {
    int result = 0;
    while ((result = avcodec_receive_packet(codec, packet)) >= 0) {
      av_packet_rescale_ts(packet, codec->time_base, format->streams[0]->time_base);
      packet->stream_index = 0;
      if (int const written = av_interleaved_write_frame(format, packet); written < 0)
        return written;
    }
    return result == AVERROR(EAGAIN) || result == AVERROR_EOF ? 0 : result;
  }
};

// Colour bars that slide one step per frame over the top three quarters,
// and noise in blocks of four pixels below them: noise is what makes an encoder spend the bit rate
// it is given, so a clip shows whether the rate was honoured.
void paintPattern(AVFrame& rgb, int index) {
  static constexpr std::uint8_t kBars[8][3] = {{235, 235, 235}, {235, 235, 16}, {16, 235, 235}, {16, 235, 16},
                                               {235, 16, 235},  {235, 16, 16},  {16, 16, 235},  {16, 16, 16}};
  for (int y = 0; y < rgb.height; ++y) {
    // The same noise for four rows running, new each frame.
    std::uint32_t noise =
        2463534242u + static_cast<std::uint32_t>(index) * 2654435761u + static_cast<std::uint32_t>(y / 4) * 40503u;
    std::uint8_t* row = rgb.data[0] + y * rgb.linesize[0];
    for (int x = 0; x < rgb.width; ++x) {
      std::uint8_t* pixel = row + 3 * x;
      if (y < rgb.height * 3 / 4) {
        int const bar = ((x + index * 4) * 8 / rgb.width) % 8;
        pixel[0] = kBars[bar][0];
        pixel[1] = kBars[bar][1];
        pixel[2] = kBars[bar][2];
        continue;
      }
      if (x % 4 == 0) {
        noise ^= noise << 13; // xorshift32
        noise ^= noise >> 17;
        noise ^= noise << 5;
      }
      pixel[0] = static_cast<std::uint8_t>(noise);
      pixel[1] = static_cast<std::uint8_t>(noise >> 8);
      pixel[2] = static_cast<std::uint8_t>(noise >> 16);
    }
  }
}

AVPixelFormat pixelFormatFor(AVCodec const& codec) {
  if (!codec.pix_fmts)
    return AV_PIX_FMT_YUV420P;
  for (AVPixelFormat const* format = codec.pix_fmts; *format != AV_PIX_FMT_NONE; ++format)
    if (*format == AV_PIX_FMT_YUV420P)
      return *format;
  return codec.pix_fmts[0];
}

} // namespace

LightweightString<wchar_t> writeTestPattern(LightweightString<wchar_t> const& path,
                                            LightweightString<char> const& fileType, VideoCompressionInfo const& info,
                                            double seconds) {
  LibavEncoders::Container const* container = LibavEncoders::findContainer(fileType);
  AVCodec const* encoder = LibavEncoders::findEncoder(info.compression.code);
  if (!container || !encoder || !LibavEncoders::accepts(*container, *encoder))
    return failure("The file type does not take this format");
  if (!info.frameRate.isValid())
    return failure("No frame rate");

  Writer writer;
  std::string const file(path.toUTF8().view());
  if (int const made = avformat_alloc_output_context2(&writer.format, nullptr, container->muxer, file.c_str());
      made < 0)
    return failure("Cannot make the container", made);
  AVStream* stream = avformat_new_stream(writer.format, nullptr);
  writer.codec = avcodec_alloc_context3(encoder);
  if (!stream || !writer.codec)
    return failure("Out of memory");
  AVCodecContext& codec = *writer.codec;
  codec.width = info.width > 0 ? info.width : 640;
  codec.height = info.height > 0 ? info.height : 360;
  codec.time_base = AVRational{info.frameRate.denominator, info.frameRate.numerator};
  codec.framerate = AVRational{info.frameRate.numerator, info.frameRate.denominator};
  codec.pix_fmt = pixelFormatFor(*encoder);
  if (writer.format->oformat->flags & AVFMT_GLOBALHEADER)
    codec.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  LibavOptions::addToDictionary(LibavOptions::rowsFor(*encoder), info.compression.options, &writer.options);
  if (int const opened = avcodec_open2(&codec, encoder, &writer.options); opened < 0)
    return failure("The encoder refused its settings", opened);
  stream->time_base = codec.time_base;
  stream->avg_frame_rate = codec.framerate;
  if (int const copied = avcodec_parameters_from_context(stream->codecpar, &codec); copied < 0)
    return failure("Cannot describe the stream", copied);
  // Written beside its name and renamed when whole, so a reader never sees
  // half a clip under that name.
  writer.partial = file + ".part";
  if (int const opened = avio_open(&writer.format->pb, writer.partial.c_str(), AVIO_FLAG_WRITE); opened < 0)
    return failure("Cannot open the file", opened);
  writer.opened = true;
  if (int const header = avformat_write_header(writer.format, nullptr); header < 0)
    return failure("Cannot write the header", header);

  writer.rgb = av_frame_alloc();
  writer.frame = av_frame_alloc();
  writer.packet = av_packet_alloc();
  if (!writer.rgb || !writer.frame || !writer.packet)
    return failure("Out of memory");
  writer.rgb->format = AV_PIX_FMT_RGB24;
  writer.frame->format = codec.pix_fmt;
  for (AVFrame* frame : {writer.rgb, writer.frame}) {
    frame->width = codec.width;
    frame->height = codec.height;
    if (int const got = av_frame_get_buffer(frame, 0); got < 0)
      return failure("Out of memory", got);
  }
  writer.scaler = sws_getContext(codec.width, codec.height, AV_PIX_FMT_RGB24, codec.width, codec.height, codec.pix_fmt,
                                 SWS_BILINEAR, nullptr, nullptr, nullptr);
  if (!writer.scaler)
    return failure("Cannot convert the pattern to the encoder's pixels");

  auto const frames = static_cast<int>(std::lround(seconds * info.frameRate.framesPerSecond()));
  for (int index = 0; index < frames; ++index) {
    paintPattern(*writer.rgb, index);
    av_frame_make_writable(writer.frame);
    sws_scale(writer.scaler, writer.rgb->data, writer.rgb->linesize, 0, codec.height, writer.frame->data,
              writer.frame->linesize);
    writer.frame->pts = index;
    if (int const sent = avcodec_send_frame(&codec, writer.frame); sent < 0)
      return failure("The encoder refused a frame", sent);
    if (int const drained = writer.drain(); drained < 0)
      return failure("Cannot write a frame", drained);
  }
  avcodec_send_frame(&codec, nullptr);
  if (int const drained = writer.drain(); drained < 0)
    return failure("Cannot write the last frames", drained);
  if (int const trailer = av_write_trailer(writer.format); trailer < 0)
    return failure("Cannot finish the file", trailer);
  avio_closep(&writer.format->pb);
  writer.opened = false;
  if (std::rename(writer.partial.c_str(), file.c_str()) != 0)
    return failure("Cannot put the file in place");
  writer.partial.clear();
  return {};
}

#endif
