#include <zowidgets/host/display/detail/DisplayShell.h>

#include <SDL.h>

namespace {

class DisplayShell : public Zo::iShellBackend {
public:
  LightweightString<wchar_t> clipboardText() override {
    char* text = SDL_GetClipboardText();
    LightweightString<wchar_t> result = toWide(text ? text : "");
    SDL_free(text);
    return result;
  }
  void setClipboardText(LightweightString<wchar_t> const& text) override {
    SDL_SetClipboardText(toNarrow(text).c_str());
  }
  bool perform(Zo::ShellRequest const& request) override { return opener_->perform(request); }

private:
  std::shared_ptr<Zo::iShellBackend> opener_ = Zo::makeXdgShell();
};

} // namespace

std::shared_ptr<Zo::iShellBackend> Zo::makeDisplayShell() { return std::make_shared<DisplayShell>(); }
