#include <zowidgets/images/ImageThumbnailBrowser.h>

#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/images/ImageItem.h>

namespace {

std::vector<LightweightString<wchar_t>> labelsOf(std::vector<LightweightString<wchar_t>> const& files) {
  std::vector<LightweightString<wchar_t>> labels;
  labels.reserve(files.size());
  for (auto const& file : files)
    labels.push_back(stripExtension(stripPath(file)));
  return labels;
}

ImageThumbnailBrowser::InitArgs sizedArgs(unsigned short width, unsigned short height, unsigned short lineHeight) {
  ImageThumbnailBrowser::InitArgs args(GlobCreationInfo(XY<int>(width, height)));
  args.lineHeight = lineHeight;
  return args;
}

} // namespace

ImageThumbnailBrowser::ImageThumbnailBrowser(InitArgs const& args) : ScrollList(args) {
  if (!args.files.empty())
    setFiles(args.files);
}

ImageThumbnailBrowser::ImageThumbnailBrowser(LightweightString<wchar_t> const& folder, unsigned short width,
                                             unsigned short height, unsigned short lineHeight)
    : ScrollList(sizedArgs(width, height, lineHeight)) {
  setPath(folder);
}

ImageThumbnailBrowser::ImageThumbnailBrowser(std::vector<LightweightString<wchar_t>> const& files, unsigned short width,
                                             unsigned short height, unsigned short lineHeight)
    : ScrollList(sizedArgs(width, height, lineHeight)) {
  setFiles(files);
}

void ImageThumbnailBrowser::setPath(LightweightString<wchar_t> const& folder) {
  std::vector<LightweightString<wchar_t>> all;
  getFolderContents(folder, all);
  std::vector<LightweightString<wchar_t>> kept;
  for (auto const& file : all) {
    if (ZoImage::Loader::canLoadImage(file))
      kept.push_back(file);
  }
  setFiles(kept);
}

void ImageThumbnailBrowser::setFiles(std::vector<LightweightString<wchar_t>> const& files) {
  files_ = files;
  setStrings(labelsOf(files_));
}

LightweightString<wchar_t> ImageThumbnailBrowser::getSelectedFile() const {
  int const index = getSelectedIndex();
  return index >= 0 && index < int(files_.size()) ? files_[index] : LightweightString<wchar_t>();
}

void ImageThumbnailBrowser::getSelectedFiles(std::vector<LightweightString<wchar_t>>& out) const {
  for (int index : getSelectedIndices()) {
    if (index < int(files_.size()))
      out.push_back(files_[index]);
  }
}

void ImageThumbnailBrowser::getFolderContents(LightweightString<wchar_t> const& folder,
                                              std::vector<LightweightString<wchar_t>>& out) const {
  for (auto const& name : OS().listFolder(folder, L"*"))
    out.push_back(joinPaths(folder, name));
}

ScrollListItemWidget* ImageThumbnailBrowser::makeWidget(unsigned short index, LightweightString<wchar_t> const& text,
                                                        Palette const& palette, unsigned short width,
                                                        unsigned short height) {
  ImageItem::InitArgs args(index, UIString(text), XY<int>(width, height));
  if (index < files_.size())
    args.path = files_[index];
  auto* row = new ImageItem(args);
  row->setPalette(palette);
  return row;
}
