#include <zowidgets/host/shell/OS.h>

#include <mutex>
#include <utility>
#include <vector>

namespace Zo {

// The shell state: the backend in desktop mode, or, headless, the clipboard
// and the record of requests.
struct OperatingSystem::Shell {
  mutable std::mutex mutex;
  std::shared_ptr<iShellBackend> backend;
  LightweightString<wchar_t> clipboard;
  std::vector<ShellRequest> recorded;

  std::shared_ptr<iShellBackend> currentBackend() const {
    std::lock_guard lock(mutex);
    return backend;
  }

  bool handle(ShellRequest request) {
    std::erase_if(request.targets, [](auto const& target) { return target.empty(); });
    if (request.targets.empty())
      return false;
    if (auto desktop = currentBackend())
      return desktop->perform(request);
    std::lock_guard lock(mutex);
    recorded.push_back(std::move(request));
    return true;
  }
};

OperatingSystem::OperatingSystem() : shell_(std::make_unique<Shell>()) {}

OperatingSystem::~OperatingSystem() = default;

void OperatingSystem::setShellMode(ShellMode mode) {
  setShellBackend(mode == ShellMode::desktop ? makeXdgShell() : nullptr);
}

void OperatingSystem::setShellBackend(std::shared_ptr<iShellBackend> backend) {
  std::lock_guard lock(shell_->mutex);
  shell_->backend = std::move(backend);
}

ShellMode OperatingSystem::shellMode() const {
  return shell_->currentBackend() ? ShellMode::desktop : ShellMode::headless;
}

std::vector<ShellRequest> OperatingSystem::recordedShellRequests() const {
  std::lock_guard lock(shell_->mutex);
  return shell_->recorded;
}

void OperatingSystem::clearRecordedShellRequests() {
  std::lock_guard lock(shell_->mutex);
  shell_->recorded.clear();
}

LightweightString<wchar_t> OperatingSystem::clipboardText() const {
  if (auto desktop = shell_->currentBackend())
    return desktop->clipboardText();
  std::lock_guard lock(shell_->mutex);
  return shell_->clipboard;
}

void OperatingSystem::setClipboardText(LightweightString<wchar_t> const& text) {
  if (auto desktop = shell_->currentBackend())
    return desktop->setClipboardText(text);
  std::lock_guard lock(shell_->mutex);
  shell_->clipboard = text;
}

void OperatingSystem::copyToClipboard(std::vector<LightweightString<wchar_t>> const& items) {
  LightweightString<wchar_t> text;
  for (auto const& item : items) {
    if (&item != &items.front())
      text += L'\n';
    text += item;
  }
  setClipboardText(text);
}

bool OperatingSystem::open(LightweightString<wchar_t> const& urlOrPath) {
  return shell_->handle({ShellRequest::Kind::open, {urlOrPath}});
}

bool OperatingSystem::revealFiles(std::vector<LightweightString<wchar_t>> const& paths) {
  return shell_->handle({ShellRequest::Kind::reveal, paths});
}

bool OperatingSystem::dragFiles(std::vector<LightweightString<wchar_t>> const& paths) {
  return shell_->handle({ShellRequest::Kind::drag, paths});
}

} // namespace Zo

Zo::OperatingSystem& OS() {
  static Zo::OperatingSystem services;
  return services;
}

namespace Glib {

bool viewDocument(LightweightString<wchar_t> const& urlOrPath) { return OS().open(urlOrPath); }

bool revealFiles(std::vector<LightweightString<wchar_t>> const& paths) { return OS().revealFiles(paths); }

bool dragFilesToOS(std::vector<LightweightString<wchar_t>> const& paths) { return OS().dragFiles(paths); }

} // namespace Glib

iMediaServices& Zo::OperatingSystem::media() const { return mediaServices(); }
