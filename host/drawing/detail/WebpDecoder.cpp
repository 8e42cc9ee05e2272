// WebP through libwebp, straight into the surface's rows.
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <webp/decode.h>

namespace ZoImage::detail {

Zo::Image::Surface decodeWebp(std::string_view bytes, std::string& error) {
  auto const* data = reinterpret_cast<std::uint8_t const*>(bytes.data());
  WebPBitstreamFeatures features;
  if (WebPGetFeatures(data, bytes.size(), &features) != VP8_STATUS_OK) {
    error = "not a readable WebP picture";
    return {};
  }
  if (features.has_animation) {
    error = "animated WebP pictures are not supported";
    return {};
  }
  if (!acceptableSize(features.width, features.height)) {
    error = "the picture claims " + std::to_string(features.width) + " by " + std::to_string(features.height) +
            " pixels, more than allowed";
    return {};
  }
  WebPDecoderConfig config;
  if (!WebPInitDecoderConfig(&config)) {
    error = "libwebp does not match its headers";
    return {};
  }
  Zo::Image::Surface surface(features.width, features.height);
  if (surface.empty()) {
    error = "no memory for the pixels";
    return {};
  }
  // MODE_bgrA is premultiplied BGRA: the surface's own layout on a
  // little-endian machine.
  config.output.colorspace = MODE_bgrA;
  config.output.is_external_memory = 1;
  config.output.u.RGBA.rgba = surface.data();
  config.output.u.RGBA.stride = surface.stride();
  config.output.u.RGBA.size = std::size_t(surface.stride()) * surface.height();
  VP8StatusCode const status = WebPDecode(data, bytes.size(), &config);
  WebPFreeDecBuffer(&config.output);
  if (status != VP8_STATUS_OK) {
    error = "the WebP data is damaged (libwebp status " + std::to_string(int(status)) + ")";
    return {};
  }
  return surface;
}

} // namespace ZoImage::detail
