#include <zowidgets/export/FileWriterInfo.h>

#include <zowidgets/values/params/ChoiceParam.h>
#include <zowidgets/values/params/NumericParams.h>
#include <zowidgets/values/params/TextParams.h>

#include <cmath>

using namespace GenericParam;

namespace Zo {

std::vector<LightweightString<char>> FileWriterInfo::getSupportedFormatTypes(Compression::eUsage usage) {
  return MediaWriters::getSupportedFormatTypes(usage);
}

ParamList FileWriterInfo::getEncodeOptions(LightweightString<char> const& fileType, VideoCompressionInfo const& info) {
  ParamList params;
  for (MediaOption const& option : MediaWriters::getEncodeOptions(fileType, info))
    params.push_back(makeParam(option));
  return params;
}

Zo::Ptr<iParam> FileWriterInfo::makeParam(MediaOption const& option) {
  UIString const legend(option.legend);
  UIString const tooltip(option.tooltip);
  switch (option.kind) {
  case MediaOption::kInteger:
    return Zo::Ptr<iParam>(new IntParam(legend, option.id, tooltip, static_cast<int>(std::lround(option.defaultNumber)),
                                        static_cast<int>(option.min), static_cast<int>(option.max)));
  case MediaOption::kNumber:
    return Zo::Ptr<iParam>(new DoubleParam(legend, option.id, tooltip, option.defaultNumber, option.min, option.max));
  case MediaOption::kBoolean:
    return Zo::Ptr<iParam>(new BoolParam(legend, option.id, tooltip, option.defaultNumber != 0));
  case MediaOption::kChoice: {
    std::vector<ChoiceParam::Choice> choices;
    for (MediaOption::Choice const& choice : option.choices)
      choices.push_back({UIString(choice.label), UIString(choice.tooltip), static_cast<unsigned>(choice.value), true});
    return Zo::Ptr<iParam>(
        new ChoiceParam(legend, option.id, tooltip, static_cast<int>(option.defaultNumber), choices));
  }
  default:
    return Zo::Ptr<iParam>(new TextParam(legend, option.id, tooltip, option.defaultText));
  }
}

} // namespace Zo
