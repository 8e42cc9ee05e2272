#pragma once

#include <zowidgets/host/widgets/files/FileBrowserBase.h>

// The full file browser: a path box above a framed table of names, sizes
// and dates, with column titles that sort, and folders that open.
class ZO_API FileBrowser : public FileBrowserBase {
public:
  static constexpr unsigned kOptions = kShowTitles | kFramed | kPathBox | kNavigate;

  // `extraOptions` adds to kOptions, e.g. kFoldersOnly.
  explicit FileBrowser(InitArgs const& args, unsigned extraOptions = 0);
  char const* idstring() const override { return "FileBrowser"; }
};
