#include <zowidgets/host/shell/Compression.h>
#include <zowidgets/host/shell/MediaWriters.h>

LightweightString<wchar_t> VideoCompressionInfo::getDisplayString(unsigned long flags) const {
  if (compression.code.isNone())
    return {};
  std::wstring text;
  if (flags & kShowName)
    text = Zo::MediaWriters::source().formatName(compression.code).str();
  // A format the services cannot name is still told apart by its code.
  if ((flags & kShowCode) || text.empty()) {
    std::wstring const code = LightweightString<wchar_t>::fromUTF8(compression.code.toString().view()).str();
    text = text.empty() ? code : text + L" (" + code + L")";
  }
  return LightweightString<wchar_t>(text);
}

void Compression::getValidFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                                  VectorExt<ShotVideoMetadata>& digitalFormats, VectorExt<Zo::Image::Format>& formats) {
  Zo::MediaWriters::source().validFormats(fileType, metadata, digitalFormats, formats);
}
