#pragma once

#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/values/params/GenericParam.h>

namespace Zo {

// The host's file writers as the export controls use them: the options of a
// format come as parameters, ready for the panel builder.
class ZO_API FileWriterInfo {
public:
  static std::vector<LightweightString<char>> getSupportedFormatTypes(Compression::eUsage usage);
  // New parameters at their defaults, one per option, in the writer's order.
  static GenericParam::ParamList getEncodeOptions(LightweightString<char> const& fileType,
                                                  VideoCompressionInfo const& info);
  static Zo::Ptr<GenericParam::iParam> makeParam(MediaOption const& option);
};

} // namespace Zo
