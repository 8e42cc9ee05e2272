#pragma once

#include <zowidgets/host/widgets/files/FileBrowserBase.h>

// A file browser of one column, the names, with a frame and folders that
// open: for a small place in a panel.
class ZO_API SimpleFileBrowser : public FileBrowserBase {
public:
  explicit SimpleFileBrowser(FileBrowserBase::InitArgs const& args);
  char const* idstring() const override { return "SimpleFileBrowser"; }

  std::vector<ColumnDefinition> getColumnDefinitions() const override;
};
