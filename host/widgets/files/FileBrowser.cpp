#include <zowidgets/host/widgets/files/FileBrowser.h>

FileBrowser::FileBrowser(InitArgs const& args, unsigned extraOptions) : FileBrowserBase(args) {
  init(args, kOptions | extraOptions);
}
