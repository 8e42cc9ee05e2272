#pragma once

#include <zowidgets/host/shell/FrameRate.h>
#include <zowidgets/host/shell/ImageFormat.h>

namespace Zo::Image {

// How the samples of a picture are to be read: the fields a clip may differ
// in without being a different raster.
struct ZO_API VideoSampleData {
  int polarity = 0;     // 0 normal, 1 inverted
  int colorimetry = 1;  // 0 SD (601), 1 HD (709), 2 UHD (2020); 3 and up are unusual spaces
  int gamutScaling = 0; // 0 legal range, 1 full range
  bool dataSet = false; // whether the fields above were given
  int bitDepth = 8;
  int chromaSiting = 0;
  int alphaMode = 0;
  friend bool operator==(VideoSampleData const&, VideoSampleData const&) = default;
  friend auto operator<=>(VideoSampleData const&, VideoSampleData const&) = default;
};

} // namespace Zo::Image

namespace Zo {
// Families of rasters, in the order format menus list them.
enum class FormatGroup : int { kSD = 0, kHD = 1, kUHD = 2, kOther = 3 };
ZO_API LightweightString<wchar_t> getDisplayString(FormatGroup group);
} // namespace Zo

// What a shot's video is: raster, rate, scan and how its samples read.
class ZO_API ShotVideoMetadata {
public:
  enum eScanMode : int { kProgressive = 0, kInterlacedUpperFirst = 1, kInterlacedLowerFirst = 2 };
  enum eBufferOrientation : int { kTopDown = 0, kBottomUp = 1 };

  struct VideoFormatInfo {
    Zo::FormatGroup group = Zo::FormatGroup::kOther;
  };

  // Orders by every field, so two equal metadata are one element of a set.
  struct ZO_API CompareT {
    bool operator()(ShotVideoMetadata const& a, ShotVideoMetadata const& b) const;
  };

  ShotVideoMetadata() = default;
  ShotVideoMetadata(int width, int height, Zo::FrameRate rate, int scanMode = kProgressive);

  int getWidth() const noexcept { return width; }
  int getHeight() const noexcept { return height; }
  // "1920x1080p 25 fps"; interlaced rasters show "i".
  LightweightString<wchar_t> getDisplayString() const;
  VideoFormatInfo getVideoFormatInfo() const;

  friend bool operator==(ShotVideoMetadata const&, ShotVideoMetadata const&) = default;

  int width = 0;
  int height = 0;
  Zo::FrameRate frameRate;
  int scanMode = kProgressive;
  int aspectNumerator = 16;
  int aspectDenominator = 9;
  Zo::Image::FormatUID formatUID = Zo::Image::FormatUID::kUnknown;
  int bufferOrientation = kTopDown;
  int stride = 0; // bytes per row; 0 for packed rows
  Zo::Image::VideoSampleData sample;
};
