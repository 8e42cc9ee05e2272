#pragma once

#include <zowidgets/host/shell/MediaSource.h>

namespace Zo {

// The file writers the host has: which file types it writes, and what each
// compression format of a type can be told. The answers come from one source
// at a time: the built-in table unless another is installed.
class ZO_API MediaWriters {
public:
  static std::vector<LightweightString<char>> getSupportedFormatTypes(Compression::eUsage usage);
  static MediaOptions getEncodeOptions(LightweightString<char> const& fileType, VideoCompressionInfo const& info);

  // Null puts the built-in table back.
  static void setSource(Zo::Ptr<iMediaSource> const& source);
  static iMediaSource& source();
};

} // namespace Zo

// File type identifiers and their extensions.
namespace ZoExport {
// "MOV" for "quicktime"; empty for a type the writers don't know.
ZO_API LightweightString<wchar_t> getExtensionForFormatID(LightweightString<char> const& fileType);
// The type whose extension this is, regardless of case; empty if none.
ZO_API LightweightString<char> getFormatIDForExtension(LightweightString<wchar_t> const& extension);
} // namespace ZoExport
