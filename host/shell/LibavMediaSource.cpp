#include <zowidgets/host/shell/LibavMediaSource.h>

#ifndef ZO_HAVE_LIBAV

Zo::Ptr<iMediaSource> makeLibavMediaSource() { return {}; }

LightweightString<wchar_t> writeTestPattern(LightweightString<wchar_t> const&, LightweightString<char> const&,
                                            VideoCompressionInfo const&, double) {
  return L"This build has no codec libraries.";
}

#else

#include <zowidgets/host/shell/detail/LibavEncoders.h>
#include <zowidgets/host/shell/detail/LibavOptions.h>

namespace {

class LibavMediaSource : public iMediaSource {
public:
  FileTypes fileTypes(Compression::eUsage usage) const override {
    FileTypes ids;
    if (usage == Compression::kVideoExport)
      for (LibavEncoders::Container const& container : LibavEncoders::containers())
        ids.push_back(container.id);
    return ids;
  }

  LightweightString<wchar_t> extensionFor(LightweightString<char> const& fileType) const override {
    LibavEncoders::Container const* container = LibavEncoders::findContainer(fileType);
    return container ? LightweightString<wchar_t>(container->extension) : LightweightString<wchar_t>();
  }

  void validFormats(LightweightString<char> const& fileType, ShotVideoMetadata const& metadata,
                    VectorExt<ShotVideoMetadata>& digitalFormats,
                    VectorExt<Zo::Image::Format>& formats) const override {
    digitalFormats.clear();
    formats.clear();
    LibavEncoders::Container const* container = LibavEncoders::findContainer(fileType);
    if (!container)
      return;
    for (AVCodec const* codec : LibavEncoders::encodersFor(*container))
      formats.push_back(LibavEncoders::formatOf(*codec));
    if (!formats.empty())
      digitalFormats.push_back(metadata);
  }

  LightweightString<wchar_t> formatName(Zo::Image::Format format) const override {
    return LibavEncoders::nameOf(format);
  }

  MediaOptions encodeOptions(LightweightString<char> const& fileType, Zo::Image::Format format) const override {
    LibavEncoders::Container const* container = LibavEncoders::findContainer(fileType);
    AVCodec const* codec = LibavEncoders::findEncoder(format);
    if (!container || !codec || !LibavEncoders::accepts(*container, *codec))
      return {};
    return LibavOptions::optionsOf(LibavOptions::rowsFor(*codec));
  }
};

} // namespace

Zo::Ptr<iMediaSource> makeLibavMediaSource() { return Zo::Ptr<iMediaSource>(new LibavMediaSource); }

#endif
