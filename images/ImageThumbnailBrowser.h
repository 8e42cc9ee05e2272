#pragma once

#include <zowidgets/host/widgets/lists/ScrollList.h>

#include <vector>

// A scrolling list of the pictures of a folder: each row shows a thumbnail
// and the file's name without its extension. Only rows in sight exist
// (ScrollList), and a row asks for its thumbnail when it is first drawn, so
// pictures out of sight are never decoded. Decoding runs on the shared
// ZoImage::Cache's workers; the user-interface thread only scales the small
// decoded copy to the row. A new line height (setLineHeight) remakes the rows
// in sight, which take their pictures from the cache, and keeps the selection.
class ZO_API ImageThumbnailBrowser : public ScrollList {
public:
  class ImageItem;

  struct InitArgs : ScrollList::InitArgs {
    using ScrollList::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : ScrollList::InitArgs(info) {}
    std::vector<LightweightString<wchar_t>> files; // full paths, in list order
  };

  explicit ImageThumbnailBrowser(InitArgs const& args);
  // The pictures of `folder`, in a list `width` by `height` with rows
  // `lineHeight` high (0: the interface's row height).
  ImageThumbnailBrowser(LightweightString<wchar_t> const& folder, unsigned short width, unsigned short height,
                        unsigned short lineHeight = 0);
  ImageThumbnailBrowser(std::vector<LightweightString<wchar_t>> const& files, unsigned short width,
                        unsigned short height, unsigned short lineHeight = 0);
  char const* idstring() const override { return "ImageThumbnailBrowser"; }

  // Lists the files of `folder` that hold a picture the loader can read, in
  // the folder's order; a folder with none gives an empty list.
  void setPath(LightweightString<wchar_t> const& folder);
  void setFiles(std::vector<LightweightString<wchar_t>> const& files);
  std::vector<LightweightString<wchar_t>> const& getFiles() const noexcept { return files_; }

  // The selected row's path; empty without a selection.
  virtual LightweightString<wchar_t> getSelectedFile() const;
  // Appends every selected row's path.
  virtual void getSelectedFiles(std::vector<LightweightString<wchar_t>>& out) const;
  // Appends the full path of every file in `folder`, sorted by name.
  virtual void getFolderContents(LightweightString<wchar_t> const& folder,
                                 std::vector<LightweightString<wchar_t>>& out) const;

protected:
  ScrollListItemWidget* makeWidget(unsigned short index, LightweightString<wchar_t> const& text, Palette const& palette,
                                   unsigned short width, unsigned short height) override;

private:
  std::vector<LightweightString<wchar_t>> files_;
};
