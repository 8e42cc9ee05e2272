#pragma once

#include <zowidgets/host/shell/Compression.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

// A titled menu of the compression formats a file type takes for a shot.
// When the file type changes it keeps the chosen format if the new type
// takes it, and otherwise picks a replacement suited to the frame width.
class ZO_API CompressionFormatButton : public TitleMenuButton {
public:
  static constexpr char const* CompressionFormatChangedMsg = "CFBChangedMsg";

  struct InitArgs : TitleMenuButton::InitArgs {
    InitArgs() = default;
    InitArgs(Compression::eUsage usage, unsigned short width, unsigned short height)
        : TitleMenuButton::InitArgs(UIString(L"Format"), {}, -1, XY<int>(width, height)), usage(usage) {}
    Compression::eUsage usage = Compression::kVideoExport;
  };

  explicit CompressionFormatButton(InitArgs const& args);
  char const* idstring() const override { return "CompressionFormatButton"; }

  void init(InitArgs const& args);
  // Which parts of a format's display string the menu shows
  // (VideoCompressionInfo::kShowName, kShowCode).
  void setDisplayFlags(unsigned long flags) { displayFlags_ = flags; }
  unsigned long getDisplayFlags() const noexcept { return displayFlags_; }
  void setDeactivateWhenEmpty(bool deactivate) { deactivateWhenEmpty_ = deactivate; }

  // The chosen format with no options; code -1 when nothing is chosen.
  CompressionFormat getCompressionFormat() const;
  // Selects the row that shows the format of `info`.
  void setCompressionFormat(VideoCompressionInfo const& info);
  // Offers `formats` and selects the format of `info` among them.
  void setCompressionFormat(VideoCompressionInfo const& info, VectorExt<Zo::Image::Format> const& formats);
  // Selects `format`, or when the menu lacks it a replacement for the shot's
  // frame width; a code of -1 changes nothing.
  void setSelected(CompressionFormat const& format, ShotVideoMetadata const& metadata);
  // Offers the formats `fileType` takes for the shot, keeping the current
  // choice where it can.
  void setOutputFormat(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata);

  // The format the last setSelected chose, with the options it set: a
  // replacement carries the bit rate it is usually written at.
  CompressionFormat const& getLastSelected() const noexcept { return lastSelected_; }
  VectorExt<Zo::Image::Format> const& getFormats() const noexcept { return formats_; }
  Compression::eUsage getUsage() const noexcept { return usage_; }

  int react(Event const& event) override;

private:
  Compression::eUsage usage_ = Compression::kVideoExport;
  VectorExt<Zo::Image::Format> formats_;
  CompressionFormat lastSelected_;
  unsigned long displayFlags_ = VideoCompressionInfo::kShowName;
  bool deactivateWhenEmpty_ = true;
};
