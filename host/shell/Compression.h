#pragma once

#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/shell/ShotVideoMetadata.h>
#include <zowidgets/host/shell/VectorExt.h>

// A compression format and the values of its options, by option id.
class ZO_API CompressionFormat {
public:
  // The option id the bit rate is kept under, in megabits per second.
  static constexpr char const* kBitRateOption = "BitRate";

  CompressionFormat() = default;
  explicit CompressionFormat(Zo::Image::Format code, configb options = {}) : code(code), options(std::move(options)) {}

  void setBitRate(double megabitsPerSecond) { options.set(kBitRateOption, megabitsPerSecond); }
  bool hasBitRate() const { return options.in(kBitRateOption); }
  double getBitRate() const { return options.getDouble(kBitRateOption); }

  friend bool operator==(CompressionFormat const& a, CompressionFormat const& b) {
    return a.code == b.code && a.options.toText() == b.options.toText();
  }

  Zo::Image::Format code;
  configb options;
};

// A shot's video and the compression to write it with.
class ZO_API VideoCompressionInfo : public ShotVideoMetadata {
public:
  // Display flags: the format's name, and its four-character code after it.
  static constexpr unsigned long kShowName = 1;
  static constexpr unsigned long kShowCode = 2;

  VideoCompressionInfo() = default;
  VideoCompressionInfo(ShotVideoMetadata const& metadata, CompressionFormat const& format)
      : ShotVideoMetadata(metadata), compression(format) {}

  void setCompressionFormat(CompressionFormat const& format) { compression = format; }
  CompressionFormat const& getCompressionFormat() const noexcept { return compression; }
  void setVideoFormatUID(Zo::Image::FormatUID uid) { formatUID = uid; }
  // The format's name as the media services give it ("Motion JPEG"), and
  // "(MJPG)" after it with kShowCode; empty for no format.
  LightweightString<wchar_t> getDisplayString(unsigned long flags) const;

  CompressionFormat compression;
};

class ZO_API Compression {
public:
  // What the file is written for: picture and sound, or sound alone.
  enum eUsage : int { kVideoExport = 0, kAudioExport = 1 };

  // The pixel layouts `fileType` can hold a shot of `metadata` in, and the
  // compression formats it takes for it, in menu order. Both are emptied
  // first; an unknown type leaves them empty.
  static void getValidFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                              VectorExt<ShotVideoMetadata>& digitalFormats, VectorExt<Zo::Image::Format>& formats);
};
