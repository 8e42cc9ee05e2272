#include <zowidgets/host/shell/ShotVideoMetadata.h>

#include <tuple>

namespace Zo {

LightweightString<wchar_t> getDisplayString(FormatGroup group) {
  switch (group) {
  case FormatGroup::kSD:
    return L"Standard definition";
  case FormatGroup::kHD:
    return L"High definition";
  case FormatGroup::kUHD:
    return L"Ultra high definition";
  case FormatGroup::kOther:
    break;
  }
  return L"Other sizes";
}

} // namespace Zo

ShotVideoMetadata::ShotVideoMetadata(int width, int height, Zo::FrameRate rate, int scanMode)
    : width(width), height(height), frameRate(rate), scanMode(scanMode) {}

namespace {

auto orderingKey(ShotVideoMetadata const& m) {
  return std::tie(m.width, m.height, m.frameRate.numerator, m.frameRate.denominator, m.frameRate.dropFrame, m.scanMode,
                  m.aspectNumerator, m.aspectDenominator, m.formatUID, m.bufferOrientation, m.stride, m.sample);
}

} // namespace

bool ShotVideoMetadata::CompareT::operator()(ShotVideoMetadata const& a, ShotVideoMetadata const& b) const {
  return orderingKey(a) < orderingKey(b);
}

LightweightString<wchar_t> ShotVideoMetadata::getDisplayString() const {
  std::wstring text =
      std::to_wstring(width) + L"x" + std::to_wstring(height) + (scanMode == kProgressive ? L"p" : L"i");
  if (frameRate.isValid())
    text += L" " + Zo::getDisplayString(frameRate).str();
  return LightweightString<wchar_t>(text);
}

ShotVideoMetadata::VideoFormatInfo ShotVideoMetadata::getVideoFormatInfo() const {
  // Grouped by the number of lines, as broadcast rasters are named.
  VideoFormatInfo info;
  if (height <= 0)
    info.group = Zo::FormatGroup::kOther;
  else if (height <= 576)
    info.group = Zo::FormatGroup::kSD;
  else if (height <= 1080)
    info.group = Zo::FormatGroup::kHD;
  else
    info.group = Zo::FormatGroup::kUHD;
  return info;
}
