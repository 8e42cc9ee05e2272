#pragma once

#include <zowidgets/host/shell/ImageFormat.h>

#include <vector>

struct AVCodec;

// The containers offered and the video encoders each accepts.
namespace LibavEncoders {

struct Container {
  char const* id;    // the file type identifier
  char const* muxer; // the library's name for the container
  wchar_t const* extension;
};

std::vector<Container> const& containers();
Container const* findContainer(LightweightString<char> const& id);
// The video encoders the container takes, in the library's order.
std::vector<AVCodec const*> const& encodersFor(Container const& container);
bool accepts(Container const& container, AVCodec const& codec);
// An encoder's four-byte code: a hash of its name, so it stays the same
// from one version of the library to the next.
Zo::Image::Format formatOf(AVCodec const& codec);
AVCodec const* findEncoder(Zo::Image::Format format);
// The encoder's name, or nothing for a code no encoder has.
LightweightString<wchar_t> nameOf(Zo::Image::Format format);

} // namespace LibavEncoders
