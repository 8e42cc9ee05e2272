#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/ShellBackend.h>

#include <algorithm>
#include <mutex>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Zo {
namespace {

using WString = LightweightString<wchar_t>;

// The folder to show for a file: the one holding it, or the current folder
// for a bare name. A path ending in '/' is a folder and is shown itself.
WString folderHolding(WString const& path) {
  auto folder = getPath(path);
  while (folder.size() > 1 && folder.endsWith(L"/"))
    folder = folder.substr(0, folder.size() - 1);
  return folder.empty() ? WString(L".") : folder;
}

class XdgShell : public iShellBackend {
public:
  XdgShell(std::string opener, OpenFailedHandler failed) : opener_(std::move(opener)), failed_(std::move(failed)) {}

  WString clipboardText() override {
    std::lock_guard lock(mutex_);
    return clipboard_;
  }

  void setClipboardText(WString const& text) override {
    std::lock_guard lock(mutex_);
    clipboard_ = text;
  }

  bool perform(ShellRequest const& request) override {
    switch (request.kind) {
    case ShellRequest::Kind::open:
      return !request.targets.empty() && launch(request.targets.front());
    case ShellRequest::Kind::reveal:
      return reveal(request.targets);
    case ShellRequest::Kind::drag:
      return false;
    }
    return false;
  }

private:
  bool reveal(std::vector<WString> const& paths) {
    std::vector<WString> folders;
    for (auto const& path : paths) {
      auto folder = folderHolding(path);
      if (std::find(folders.begin(), folders.end(), folder) == folders.end())
        folders.push_back(folder);
    }
    bool allStarted = !folders.empty();
    for (auto const& folder : folders)
      allStarted = launch(folder) && allStarted;
    return allStarted;
  }

  // Runs the opener on one target, with no shell between, and reaps it on a
  // thread of its own so that neither the caller waits nor a zombie stays.
  bool launch(WString const& target) const {
    std::string argument(target.toUTF8().view());
    // A name starting with '-' would be read as an option.
    if (argument.starts_with('-'))
      argument.insert(0, "./");
    char* argv[] = {const_cast<char*>(opener_.c_str()), argument.data(), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, opener_.c_str(), nullptr, nullptr, argv, environ) != 0)
      return false;
    std::thread([child, target, failed = failed_] {
      int status = 0;
      if (waitpid(child, &status, 0) == child && failed && !(WIFEXITED(status) && WEXITSTATUS(status) == 0))
        failed(target);
    }).detach();
    return true;
  }

  std::string const opener_;
  OpenFailedHandler const failed_;
  std::mutex mutex_;
  WString clipboard_;
};

} // namespace

std::shared_ptr<iShellBackend> makeXdgShell(std::string opener, OpenFailedHandler failed) {
  return std::make_shared<XdgShell>(std::move(opener), std::move(failed));
}

} // namespace Zo
