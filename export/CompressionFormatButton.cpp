#include <zowidgets/export/CompressionFormatButton.h>
#include <zowidgets/host/drawing/Palette.h>

CompressionFormatButton::CompressionFormatButton(InitArgs const& args) : TitleMenuButton(args) { init(args); }

void CompressionFormatButton::init(InitArgs const& args) {
  usage_ = args.usage;
  displayFlags_ = VideoCompressionInfo::kShowName;
  deactivateWhenEmpty_ = true;
}

int CompressionFormatButton::react(Event const& event) {
  // The menu's choice reaches the parent under this button's own name.
  if (event.isMessage() && event.sourceWidget == &getBtn() &&
      event.message == DropDownMenuButton::dropDownMenuButtonMsg) {
    Glob::sendMsg(parent(), CompressionFormatChangedMsg, this);
    return 1;
  }
  return TitleMenuButton::react(event);
}

CompressionFormat CompressionFormatButton::getCompressionFormat() const {
  int const selected = getSelectedItem();
  if (selected < 0 || selected >= static_cast<int>(formats_.size()))
    return CompressionFormat();
  return CompressionFormat(formats_[static_cast<std::size_t>(selected)]);
}

void CompressionFormatButton::setCompressionFormat(VideoCompressionInfo const& info) {
  LightweightString<wchar_t> const wanted = info.getDisplayString(displayFlags_);
  std::vector<MenuItem> const& items = getBtn().getMenu().items();
  for (std::size_t row = 0; row < items.size(); ++row)
    if (items[row].text.getString() == wanted) {
      setSelectedItem(static_cast<int>(row));
      return;
    }
}

void CompressionFormatButton::setCompressionFormat(VideoCompressionInfo const& info,
                                                   VectorExt<Zo::Image::Format> const& formats) {
  formats_ = formats;
  LightweightString<wchar_t> const wanted = info.getDisplayString(displayFlags_);
  std::vector<MenuItem> items;
  items.reserve(formats_.size());
  int selected = -1;
  Colour const text = getPalette().text(0);
  Colour const window = getPalette().window();
  // One row description, its format changed for each entry.
  VideoCompressionInfo row(info);
  for (Zo::Image::Format const format : formats_) {
    row.setCompressionFormat(CompressionFormat(format));
    LightweightString<wchar_t> const shown = row.getDisplayString(displayFlags_);
    if (shown == wanted && selected < 0)
      selected = static_cast<int>(items.size());
    items.emplace_back(UIString(shown), text, window);
  }
  setStrings(items, selected);
  if (deactivateWhenEmpty_)
    setActive(!formats_.empty(), kRedrawNow);
}

void CompressionFormatButton::setSelected(CompressionFormat const& format, ShotVideoMetadata const& metadata) {
  if (format.code.isNone())
    return;
  CompressionFormat chosen = format;
  if (!formats_.contains(format.code)) {
    if (formats_.empty()) {
      invalidate();
      return;
    }
    // A replacement suited to the raster; only the first choices carry the
    // bit rate they are usually written at.
    bool const highDefinition = metadata.getWidth() > 720;
    Zo::Image::Format const first(highDefinition ? "M701" : "MMES");
    Zo::Image::Format const second(highDefinition ? "M102" : "M101");
    if (formats_.contains(first)) {
      chosen = CompressionFormat(first);
      chosen.setBitRate(highDefinition ? 250.0 : 50.0);
    } else if (formats_.contains(second))
      chosen = CompressionFormat(second);
    else
      chosen = CompressionFormat(formats_.front());
  }
  lastSelected_ = chosen;
  setCompressionFormat(VideoCompressionInfo(metadata, chosen));
  invalidate();
}

void CompressionFormatButton::setOutputFormat(LightweightString<char> const& fileType,
                                              ShotVideoMetadata const& metadata) {
  VectorExt<ShotVideoMetadata> digitalFormats;
  VectorExt<Zo::Image::Format> formats;
  Compression::getValidFormats(fileType, metadata, digitalFormats, formats);
  if (formats.empty()) {
    formats_.clear();
    setStrings({}, -1);
    if (deactivateWhenEmpty_)
      setActive(false, kRedrawNow);
    invalidate();
    return;
  }
  CompressionFormat const remembered = getCompressionFormat();
  ShotVideoMetadata const& digital = digitalFormats.empty() ? metadata : digitalFormats.front();
  VideoCompressionInfo info;
  info.scanMode = digital.scanMode;
  info.aspectNumerator = digital.aspectNumerator;
  info.aspectDenominator = digital.aspectDenominator;
  info.setVideoFormatUID(digital.formatUID);
  info.bufferOrientation = digital.bufferOrientation;
  info.stride = digital.stride;
  info.sample = digital.sample;
  setCompressionFormat(info, formats);
  setSelected(remembered, metadata);
}
