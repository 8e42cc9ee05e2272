#include <zowidgets/host/shell/BuiltInMediaTable.h>

#include <algorithm>

using Zo::Image::Format;

namespace {

MediaOption described(char const* id, wchar_t const* legend, wchar_t const* tooltip, int kind) {
  MediaOption option;
  option.id = id;
  option.legend = legend;
  option.tooltip = tooltip;
  option.kind = kind;
  return option;
}

MediaOption integer(char const* id, wchar_t const* legend, wchar_t const* tooltip, int value, int min, int max) {
  MediaOption option = described(id, legend, tooltip, MediaOption::kInteger);
  option.min = min;
  option.max = max;
  option.defaultNumber = value;
  return option;
}

MediaOption number(char const* id, wchar_t const* legend, wchar_t const* tooltip, double value, double min,
                   double max) {
  MediaOption option = described(id, legend, tooltip, MediaOption::kNumber);
  option.min = min;
  option.max = max;
  option.defaultNumber = value;
  return option;
}

MediaOption boolean(char const* id, wchar_t const* legend, wchar_t const* tooltip, bool value) {
  MediaOption option = described(id, legend, tooltip, MediaOption::kBoolean);
  option.defaultNumber = value ? 1 : 0;
  return option;
}

MediaOption choice(char const* id, wchar_t const* legend, int value, std::vector<MediaOption::Choice> choices) {
  MediaOption option = described(id, legend, nullptr, MediaOption::kChoice);
  option.defaultNumber = value;
  option.choices = std::move(choices);
  return option;
}

MediaOptions longGopOptions(double bitRate, double maxBitRate) {
  return {number(CompressionFormat::kBitRateOption, L"Bit rate (Mb/s)", L"Average bits written per second", bitRate,
                 1.0, maxBitRate),
          integer("GOPLength", L"GOP length", L"Frames from one key frame to the next", 12, 1, 300),
          choice("Chroma", L"Chroma", 0, {{L"4:2:0", {}, 0}, {L"4:2:2", {}, 1}})};
}

MediaOptions intraOptions() {
  return {choice("Quality", L"Quality", 1, {{L"Low", {}, 0}, {L"Standard", {}, 1}, {L"High", {}, 2}}),
          boolean("TenBit", L"Ten-bit samples", {}, false)};
}

MediaOptions avcOptions() {
  MediaOptions options = longGopOptions(20.0, 200.0);
  options.push_back(choice("Profile", L"Profile", 1, {{L"Baseline", {}, 0}, {L"Main", {}, 1}, {L"High", {}, 2}}));
  options.push_back(boolean("FastStart", L"Fast start", L"Index at the front of the file", true));
  options.push_back(described("Tag", L"Encoder tag", nullptr, MediaOption::kText));
  return options;
}

} // namespace

Zo::Ptr<BuiltInMediaTable> BuiltInMediaTable::makeStandard() {
  Zo::Ptr<BuiltInMediaTable> table(new BuiltInMediaTable);
  table->setFormat({Format("M701"), L"HD long-GOP 4:2:2", longGopOptions(250.0, 400.0)});
  table->setFormat({Format("M102"), L"HD intra-frame", intraOptions()});
  table->setFormat({Format("MMES"), L"SD long-GOP", longGopOptions(50.0, 100.0)});
  table->setFormat({Format("M101"), L"SD intra-frame", intraOptions()});
  table->setFormat(
      {Format("MJPG"), L"Motion JPEG", {integer("Quality", L"Quality", L"Higher keeps more detail", 75, 1, 100)}});
  table->setFormat({Format("AVC1"), L"H.264", avcOptions()});
  table->setFormat({Format("RAW "), L"Uncompressed", {}});

  auto const codes = [](std::initializer_list<char const*> names) {
    std::vector<Format> list;
    for (char const* name : names)
      list.emplace_back(name);
    return list;
  };
  table->setFileType({Compression::kVideoExport, "avi", L"AVI", codes({"M102", "M101", "MJPG", "RAW "})});
  table->setFileType({Compression::kVideoExport, "quicktime", L"MOV",
                      codes({"M701", "M102", "MMES", "M101", "MJPG", "AVC1", "RAW "})});
  table->setFileType({Compression::kVideoExport, "mxf", L"MXF", codes({"M701", "M102", "MMES", "M101"})});
  table->setFileType({Compression::kVideoExport, "mp4", L"MP4", codes({"AVC1", "MMES"})});
  table->setFileType({Compression::kVideoExport, "matroska", L"MKV", codes({"AVC1", "MJPG", "RAW "})});
  table->setFileType({Compression::kAudioExport, "wav", L"WAV", {}});
  return table;
}

void BuiltInMediaTable::setFileType(FileType const& type) {
  for (FileType& existing : types_)
    if (existing.id.view() == type.id.view()) {
      existing = type;
      return;
    }
  types_.push_back(type);
}

void BuiltInMediaTable::removeFileType(LightweightString<char> const& id) {
  std::erase_if(types_, [&](FileType const& type) { return type.id.view() == id.view(); });
}

void BuiltInMediaTable::setFormat(FormatEntry const& format) { formats_[format.code] = format; }

BuiltInMediaTable::FileType const* BuiltInMediaTable::findType(LightweightString<char> const& id) const {
  for (FileType const& type : types_)
    if (type.id.view() == id.view())
      return &type;
  return nullptr;
}

iMediaSource::FileTypes BuiltInMediaTable::fileTypes(Compression::eUsage usage) const {
  FileTypes ids;
  for (FileType const& type : types_)
    if (type.usage == usage)
      ids.push_back(type.id);
  return ids;
}

LightweightString<wchar_t> BuiltInMediaTable::extensionFor(LightweightString<char> const& fileType) const {
  FileType const* type = findType(fileType);
  return type ? type->extension : LightweightString<wchar_t>();
}

void BuiltInMediaTable::validFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                                     VectorExt<ShotVideoMetadata>& digitalFormats, VectorExt<Format>& formats) const {
  digitalFormats.clear();
  formats.clear();
  FileType const* type = findType(fileType);
  if (!type || type->formats.empty())
    return;
  // Every type here holds a shot in its own raster and sample layout.
  digitalFormats.push_back(metadata);
  formats.assign(type->formats.begin(), type->formats.end());
}

LightweightString<wchar_t> BuiltInMediaTable::formatName(Format format) const {
  auto const found = formats_.find(format);
  return found == formats_.end() ? LightweightString<wchar_t>() : found->second.name;
}

MediaOptions BuiltInMediaTable::encodeOptions(LightweightString<char> const& fileType, Format format) const {
  FileType const* type = findType(fileType);
  auto const found = formats_.find(format);
  if (!type || found == formats_.end() ||
      std::find(type->formats.begin(), type->formats.end(), format) == type->formats.end())
    return {};
  return found->second.options;
}
