// JPEG through libjpeg-turbo's classic interface. Its errors arrive through a
// longjmp, so the decoding below keeps everything that must survive one in
// the Decoding record, which lives outside the setjmp frame.
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
#include <vector>

namespace ZoImage::detail {

namespace {

struct ErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
  char message[JMSG_LENGTH_MAX];
};

void onError(j_common_ptr info) {
  auto* manager = reinterpret_cast<ErrorManager*>(info->err);
  manager->base.format_message(info, manager->message);
  std::longjmp(manager->jump, 1);
}

// libjpeg goes on after corrupt data with grey pixels; a picture with a hole
// is worse than none, so the first warning ends the decode as an error does.
void onMessage(j_common_ptr info, int level) {
  if (level < 0)
    onError(info);
}

struct Decoding {
  jpeg_decompress_struct info{};
  ErrorManager errors{};
  Zo::Image::Surface pixels;
  std::vector<JSAMPLE> inks; // one row of a CMYK picture
  int orientation = 1;
};

// The smallest of 1/8, 1/4, 1/2 and 1/1 whose result still covers `fitWithin`.
unsigned int reducedScale(unsigned int width, unsigned int height, XY<int> fitWithin) {
  if (fitWithin.x <= 0 || fitWithin.y <= 0)
    return 1;
  for (unsigned int denominator : {8u, 4u, 2u}) {
    if ((width + denominator - 1) / denominator >= unsigned(fitWithin.x) &&
        (height + denominator - 1) / denominator >= unsigned(fitWithin.y))
      return denominator;
  }
  return 1;
}

// An Adobe CMYK file stores its inks inverted; black is the fourth channel.
std::uint32_t fromInvertedCmyk(JSAMPLE const* ink) {
  auto const channel = [&](int i) { return std::uint32_t(ink[i]) * ink[3] / 255; };
  return 0xFF000000u | channel(0) << 16 | channel(1) << 8 | channel(2);
}

bool decodeInto(Decoding& d, std::string_view bytes, XY<int> fitWithin, std::string& error) {
  if (setjmp(d.errors.jump)) {
    error = d.errors.message;
    return false;
  }
  jpeg_create_decompress(&d.info);
  jpeg_mem_src(&d.info, reinterpret_cast<unsigned char const*>(bytes.data()), bytes.size());
  jpeg_save_markers(&d.info, JPEG_APP0 + 1, 0xFFFF);
  jpeg_read_header(&d.info, TRUE);
  if (!acceptableSize(d.info.image_width, d.info.image_height)) {
    error = "the picture claims " + std::to_string(d.info.image_width) + " by " + std::to_string(d.info.image_height) +
            " pixels, more than allowed";
    return false;
  }
  for (jpeg_saved_marker_ptr marker = d.info.marker_list; marker; marker = marker->next) {
    if (marker->marker == JPEG_APP0 + 1)
      d.orientation = exifOrientation({reinterpret_cast<char const*>(marker->data), marker->data_length});
  }
  // A quarter turn swaps which side of the stored picture must cover which.
  XY<int> const storedFit = d.orientation >= 5 ? XY<int>(fitWithin.y, fitWithin.x) : fitWithin;
  d.info.scale_num = 1;
  d.info.scale_denom = reducedScale(d.info.image_width, d.info.image_height, storedFit);
  bool const cmyk = d.info.jpeg_color_space == JCS_CMYK || d.info.jpeg_color_space == JCS_YCCK;
  d.info.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRA;
  jpeg_start_decompress(&d.info);
  d.pixels = Zo::Image::Surface(int(d.info.output_width), int(d.info.output_height));
  if (d.pixels.empty()) {
    error = "no memory for the pixels";
    return false;
  }
  if (cmyk)
    d.inks.resize(std::size_t(d.info.output_width) * 4);
  while (d.info.output_scanline < d.info.output_height) {
    auto* row = d.pixels.data() + std::size_t(d.info.output_scanline) * d.pixels.stride();
    JSAMPROW target = cmyk ? d.inks.data() : row;
    jpeg_read_scanlines(&d.info, &target, 1);
    if (cmyk) {
      auto* out = reinterpret_cast<std::uint32_t*>(row);
      for (JDIMENSION x = 0; x < d.info.output_width; ++x)
        out[x] = fromInvertedCmyk(d.inks.data() + std::size_t(x) * 4);
    }
  }
  jpeg_finish_decompress(&d.info);
  return true;
}

} // namespace

Zo::Image::Surface decodeJpeg(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error) {
  Decoding decoding;
  decoding.info.err = jpeg_std_error(&decoding.errors.base);
  decoding.errors.base.error_exit = onError;
  decoding.errors.base.emit_message = onMessage;
  bool const decoded = decodeInto(decoding, bytes, fitWithin, error);
  jpeg_destroy_decompress(&decoding.info);
  if (!decoded)
    return {};
  bool const turned = decoding.orientation >= 5;
  fullSize = XY<int>(int(turned ? decoding.info.image_height : decoding.info.image_width),
                     int(turned ? decoding.info.image_width : decoding.info.image_height));
  return Zo::Image::orient(decoding.pixels, decoding.orientation);
}

} // namespace ZoImage::detail
