#pragma once

#include <zowidgets/host/shell/Compression.h>
#include <zowidgets/host/shell/MediaOption.h>

#include <vector>

// Where the media services get their file types, formats and options from.
// Every answer is made afresh, so a source may change between calls.
class ZO_API iMediaSource : public iObject {
public:
  using FileTypes = std::vector<LightweightString<char>>;

  virtual FileTypes fileTypes(Compression::eUsage usage) const = 0;
  // The file name extension of a type, in capitals ("MOV"); empty if unknown.
  virtual LightweightString<wchar_t> extensionFor(LightweightString<char> const& fileType) const = 0;
  virtual void validFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                            VectorExt<ShotVideoMetadata>& digitalFormats,
                            VectorExt<Zo::Image::Format>& formats) const = 0;
  // The name a user knows the format by; empty if unknown.
  virtual LightweightString<wchar_t> formatName(Zo::Image::Format format) const = 0;
  // The options of `format` in `fileType`; empty for a format without
  // options or one the type does not take.
  virtual MediaOptions encodeOptions(LightweightString<char> const& fileType, Zo::Image::Format format) const = 0;
};
