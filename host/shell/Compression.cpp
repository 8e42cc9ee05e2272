#include <zowidgets/host/shell/Compression.h>
#include <zowidgets/host/shell/MediaWriters.h>

LightweightString<wchar_t> VideoCompressionInfo::getDisplayString(unsigned long flags) const {
  if (compression.code.isNone())
    return {};
  LightweightString<wchar_t> const name =
      (flags & kShowName) ? Zo::MediaWriters::source().formatName(compression.code) : LightweightString<wchar_t>();
  // A menu of formats asks for every name: the name alone is handed on as it is.
  if (!(flags & kShowCode) && !name.empty())
    return name;
  std::wstring text = name.str();
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
