#include <zowidgets/export/SimpleFileBrowser.h>

namespace {

constexpr ResId kNameTitleId = 10493;
constexpr unsigned kSimpleOptions = 66; // framed, folders open

} // namespace

SimpleFileBrowser::SimpleFileBrowser(FileBrowserBase::InitArgs const& args) : FileBrowserBase(args) {
  static_assert(kSimpleOptions == (kFramed | kNavigate));
  init(args, kSimpleOptions);
}

std::vector<FileBrowserBase::ColumnDefinition> SimpleFileBrowser::getColumnDefinitions() const {
  TableColumnDescription name{UIString(kNameTitleId)};
  name.setResizeable(true);
  return {ColumnDefinition{"name", name}};
}
