#pragma once

#include <zowidgets/host/shell/MediaSource.h>

#include <map>

// The media services' own table of file types, formats and options: always
// there, the same on every machine, and open to change by its owner (a test
// may add or take away types and formats).
class ZO_API BuiltInMediaTable : public iMediaSource {
public:
  struct FileType {
    Compression::eUsage usage = Compression::kVideoExport;
    LightweightString<char> id;
    LightweightString<wchar_t> extension;
    std::vector<Zo::Image::Format> formats; // in menu order
  };
  struct FormatEntry {
    Zo::Image::Format code;
    LightweightString<wchar_t> name;
    MediaOptions options;
  };

  // The table the services start with: AVI, QuickTime, MXF, MP4 and
  // Matroska for video, WAV for sound, and their formats.
  static Zo::Ptr<BuiltInMediaTable> makeStandard();

  // Replaces a type of the same id, or adds one at the end.
  void setFileType(FileType const& type);
  void removeFileType(LightweightString<char> const& id);
  void setFormat(FormatEntry const& format);

  FileTypes fileTypes(Compression::eUsage usage) const override;
  LightweightString<wchar_t> extensionFor(LightweightString<char> const& fileType) const override;
  void validFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                    VectorExt<ShotVideoMetadata>& digitalFormats, VectorExt<Zo::Image::Format>& formats) const override;
  LightweightString<wchar_t> formatName(Zo::Image::Format format) const override;
  MediaOptions encodeOptions(LightweightString<char> const& fileType, Zo::Image::Format format) const override;

private:
  FileType const* findType(LightweightString<char> const& id) const;

  std::vector<FileType> types_;
  std::map<Zo::Image::Format, FormatEntry> formats_;
};
