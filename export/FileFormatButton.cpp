#include <zowidgets/export/FileFormatButton.h>

#include <zowidgets/export/FileWriterInfo.h>
#include <zowidgets/host/base/CaselessText.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/UifStd.h>

FileFormatButton::FileFormatButton(InitArgs const& args)
    : DropDownMenuButton(args), usage_(args.usage), preferenceKey_(args.preferenceKey) {
  setSelectionHook([this](int) { informOwner(); });
  init(args.usage);
}

void FileFormatButton::init(Compression::eUsage usage) {
  usage_ = usage;
  LightweightString<wchar_t> const remembered = prefs().getPreference(preferenceKey_, L"AVI");
  std::vector<MenuItem> items;
  int selected = 0;
  for (LightweightString<char> const& type : Zo::FileWriterInfo::getSupportedFormatTypes(usage)) {
    LightweightString<wchar_t> const extension = ZoExport::getExtensionForFormatID(type);
    if (sameIgnoringCase(extension.view(), remembered.view()))
      selected = static_cast<int>(items.size());
    items.emplace_back(UIString(extension), getPalette().text(0), getPalette().window());
  }
  setStrings(items, selected);
}

LightweightString<char> FileFormatButton::getFileType() const {
  return ZoExport::getFormatIDForExtension(getSelectedItemNameW());
}

void FileFormatButton::informOwner() {
  if (!preferenceKey_.empty())
    prefs().setPreference(preferenceKey_, getSelectedItemNameW());
  if (parent())
    Glob::sendMsg(parent(), FileTypeChangedMsg, this);
}

TitledFileFormatButtonInitArgs::TitledFileFormatButtonInitArgs(Compression::eUsage usage, LightweightString<char> key,
                                                               UIString legend, unsigned short width)
    : usage(usage), preferenceKey(std::move(key)) {
  this->legend = std::move(legend);
  size = XY<int>(width, UifStd::getRowHeight());
}

TitledFileFormatButton::TitledFileFormatButton(TitledFileFormatButtonInitArgs const& args) : TitleGlob(args) {
  init(args.usage, args.preferenceKey, args.buttonWidth);
}

void TitledFileFormatButton::init(Compression::eUsage usage, LightweightString<char> const& key,
                                  unsigned short buttonWidth) {
  std::vector<UIString> extensions;
  for (LightweightString<char> const& type : Zo::FileWriterInfo::getSupportedFormatTypes(usage))
    extensions.emplace_back(ZoExport::getExtensionForFormatID(type));
  int const width = buttonWidth > 0 ? buttonWidth : DropDownMenuButton::calcWidth(extensions);
  FileFormatButton::InitArgs buttonArgs(usage, key, XY<int>(width, UifStd::getRowHeight()));
  button_ = createChild<FileFormatButton>(buttonArgs, RightCentre(0, 0));
  setChildGlob(button_);
}

int TitledFileFormatButton::react(Event const& event) {
  if (event.type == Event::kMessageEvent && event.sourceWidget == button_ && button_ &&
      event.message == FileFormatButton::FileTypeChangedMsg)
    return parent() ? Glob::sendMsg(parent(), event.message, button_) : 0;
  return TitleGlob::react(event);
}
