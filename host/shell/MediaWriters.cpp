#include <zowidgets/host/shell/MediaWriters.h>

#include <zowidgets/host/base/CaselessText.h>
#include <zowidgets/host/shell/BuiltInMediaTable.h>

namespace {

Zo::Ptr<iMediaSource>& installedSource() {
  static Zo::Ptr<iMediaSource> source;
  return source;
}

} // namespace

namespace Zo {

void MediaWriters::setSource(Zo::Ptr<iMediaSource> const& source) { installedSource() = source; }

iMediaSource& MediaWriters::source() {
  Zo::Ptr<iMediaSource>& source = installedSource();
  if (!source)
    source = Zo::Ptr<iMediaSource>(BuiltInMediaTable::makeStandard());
  return *source;
}

std::vector<LightweightString<char>> MediaWriters::getSupportedFormatTypes(Compression::eUsage usage) {
  return source().fileTypes(usage);
}

MediaOptions MediaWriters::getEncodeOptions(LightweightString<char> const& fileType, VideoCompressionInfo const& info) {
  return source().encodeOptions(fileType, info.compression.code);
}

} // namespace Zo

namespace ZoExport {

LightweightString<wchar_t> getExtensionForFormatID(LightweightString<char> const& fileType) {
  return Zo::MediaWriters::source().extensionFor(fileType);
}

LightweightString<char> getFormatIDForExtension(LightweightString<wchar_t> const& extension) {
  iMediaSource& source = Zo::MediaWriters::source();
  for (auto usage : {Compression::kVideoExport, Compression::kAudioExport})
    for (LightweightString<char> const& type : source.fileTypes(usage))
      if (sameIgnoringCase(source.extensionFor(type).view(), extension.view()))
        return type;
  return {};
}

} // namespace ZoExport
